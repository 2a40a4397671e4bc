#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The panel shows record 3 of the own table with another client; the operator has then typed
/// block 11.
class ResetBlockTest : public LogicTest
{
protected:
    ResetBlockTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        panel.blockNumber.SetText("11");
        reset_[10] = DefaultRecord(11);
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kBlockQuestion, true);
        PressResetBlock(*this);
    }

    /// Whatever the end, the hidden boxes keep what they held.
    void ExpectEnd(double currentBlock, const std::string& text2)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), text2);
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(DefaultRecord(11)));
        EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
        EXPECT_EQ(StoredTable(*this), reset_);
    }

    std::vector<std::string> reset_ = OwnTable(); // the file once the record has been reset
};

TEST_F(ResetBlockTest, SendsTheDefaultsOfOneBlockAndLeavesThePortOpen)
{
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !",
                                          "> C0A000CLIENT11SITE0000T   000002+00000DDMMYYhhmmss\r",
                                          "> }", "< !", "> b000F500\r"));
    ExpectEnd(11, "11");
    EXPECT_EQ(state.blockHeader, DefaultHeader(10));
    EXPECT_TRUE(port.IsOpen());
    EXPECT_FALSE(panel.waitIndicator.label.Visible());
    EXPECT_FALSE(panel.waitIndicator.ground.Visible());
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ResetBlockTest, RunsItsStepsInTheirOrder)
{
    LogIndicator();
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text12", panel.header[Time]);
    LogTexts(*this, "Text18", panel.calibration[Gain1]);

    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "Text2=11",
                                          "Text3=CLIENT11", "Text12=hhmmss", "> }", "< !",
                                          "> " + HeaderFrame(10, DefaultRecord(11)), "> }", "< !",
                                          "> b000F500\r", "Label34 off", "Shape1 off"));
}

TEST_F(ResetBlockTest, ResetsTheRecordAfterTheIndicatorAndBeforeTheFirstWake)
{
    boxes.ExpectQuestion(kBlockQuestion, true, [&] { EXPECT_EQ(StoredTable(*this), OwnTable()); });
    world.At(0, [&] {
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(StoredTable(*this), OwnTable());
    });
    unit.onWake = [&](int) { EXPECT_EQ(StoredTable(*this), reset_); };
    PressResetBlock(*this);
}

TEST_F(ResetBlockTest, ChangesNothingWhenTheOperatorCancels)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    const BlockHeader before = state.blockHeader;
    boxes.ExpectQuestion(kBlockQuestion, false);
    PressResetBlock(*this);

    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(state.blockHeader, before);
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(panel.blockNumber.Text(), "11");
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
}

TEST_F(ResetBlockTest, GoesBackToBlock01WithTheRecordResetWhenTheFirstWakeIsNotAnswered)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_EQ(state.currentBlock, 11);
    });
    PressResetBlock(*this);

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    ExpectEnd(1, "01");
    EXPECT_LINK_AT_REST();
}

TEST_F(ResetBlockTest, LeavesTheIndicatorAndTheNumberWhenTheSecondWakeIsNotAnswered)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "!" : ""; };
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    PressResetBlock(*this);

    EXPECT_THAT(port.history,
                ElementsAre("port 1", "open", "> }", "< !",
                            "> " + HeaderFrame(10, DefaultRecord(11)), "> }", "close"));
    ExpectEnd(11, "11");
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    EXPECT_TRUE(panel.waitIndicator.ground.Visible());
}

TEST_F(ResetBlockTest, SendsTheClosingFrameAlthoughTheHeaderWasLostToAWrongAnswer)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "!\r" : "!"; };

    PressAndConfirm();

    EXPECT_THAT(port.sent, ElementsAre("}", "}", "b000F500\r"));
    EXPECT_EQ(world.Now(), 400);
    ExpectEnd(11, "11");
    EXPECT_TRUE(port.IsOpen());
}

TEST_F(ResetBlockTest, LosesTheClosingFrameToAWrongAnswer)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "!" : "?"; };

    PressAndConfirm();

    EXPECT_THAT(port.sent, ElementsAre("}", HeaderFrame(10, DefaultRecord(11)), "}"));
    EXPECT_EQ(world.Now(), 401);
    ExpectEnd(11, "11");
    EXPECT_TRUE(port.IsOpen());
    EXPECT_FALSE(panel.waitIndicator.label.Visible());
}

TEST_F(ResetBlockTest, SettlesFourTicksAfterEachFrame)
{
    PressAndConfirm();

    EXPECT_EQ(world.Now(), 800);
}

TEST_F(ResetBlockTest, ResetsTheRecordWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};

    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    ExpectEnd(11, "11");
    EXPECT_LINK_AT_REST();
}

TEST_F(ResetBlockTest, TakesAByteOfTheSettleWaitForTheNextWakesAnswer)
{
    world.At(200, [&] { port.Receive("x"); });
    unit.latency = 50;

    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !",
                                          "> " + HeaderFrame(10, DefaultRecord(11)), "> }", "< x"));
}

TEST_F(ResetBlockTest, SendsTheDefaultsOnScreenWhenTheFileCannotBeOpened)
{
    state.headerFilePath = folder.Path();

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(10, DefaultRecord(11)));
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(DefaultRecord(11)));
    EXPECT_EQ(state.currentBlock, 11);
}

TEST_F(ResetBlockTest, IsUndoneInItsCalibrationByASetBlockAfterIt)
{
    PressAndConfirm();
    boxes.ExpectQuestion(kBlocksQuestion, false);
    PressSetBlock(*this);

    reset_[10] = WithCalibrationOf(OwnRecord(3), DefaultRecord(11));
    EXPECT_EQ(StoredTable(*this), reset_);
}

TEST_F(ResetBlockTest, StopsWithoutAnotherStepWhenTheProgramEndsInASettleWait)
{
    world.EndProgramAt(250);

    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_THAT(port.sent, ElementsAre("}", HeaderFrame(10, DefaultRecord(11))));
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    ExpectEnd(11, "11");
}

} // namespace
} // namespace tarvex::tests
