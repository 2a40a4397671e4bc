#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The panel shows record 3 of the own table with another client; the operator has then typed
/// block 7.
class SetBlockTest : public LogicTest
{
protected:
    SetBlockTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        panel.blockNumber.SetText("07");
        edited_[2] = WithClient("VERDI", OwnRecord(3));
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kBlocksQuestion, true);
        PressSetBlock(*this);
    }

    void ExpectEnd(double currentBlock, const std::string& text2, const std::string& header,
                   const std::string& calibrated)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), text2);
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(header));
        EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(calibrated));
        EXPECT_EQ(StoredTable(*this), edited_);
    }

    std::vector<std::string> edited_ = OwnTable(); // the file once the panel has been stored
};

TEST_F(SetBlockTest, SendsTheStoredRecordOfTheTypedNumberAndThePanelItselfGoesToItsOwnRecord)
{
    PressAndConfirm();

    EXPECT_THAT(port.sent, ElementsAre("}",
                                       "C06000ROSSI_07DIGA  07T07 007512+007070701261007"
                                       "30\r",
                                       "}", "b000F500\r"));
    EXPECT_EQ(state.blockHeader, StoredHeader(7));
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(SetBlockTest, RunsItsStepsInTheirOrder)
{
    LogIndicator();
    LogTexts(*this, "Text2", panel.blockNumber);
    LogTexts(*this, "Text3", panel.header[Client]);
    LogTexts(*this, "Text22", panel.calibration[Point]);

    PressAndConfirm();

    EXPECT_THAT(port.history,
                ElementsAre("Label34 on", "Shape1 on", "Text2=07", "Text3=ROSSI_07", "port 1",
                            "open", "> }", "< !", "> " + HeaderFrame(6, OwnRecord(7)), "Label34 on",
                            "Shape1 on", "> }", "< !", "> b000F500\r", "Text3=ROSSI_07", "Text22=G",
                            "close", "Label34 off", "Shape1 off"));
}

TEST_F(SetBlockTest, StoresThePanelBeforeItAsksAndTouchesNothingElseUntilTheAnswer)
{
    boxes.ExpectQuestion(kBlocksQuestion, true, [&] {
        EXPECT_EQ(StoredTable(*this), edited_);
        EXPECT_THAT(port.history, IsEmpty());
        EXPECT_EQ(state.currentBlock, 3);
        EXPECT_FALSE(panel.waitIndicator.label.Visible());
    });
    PressSetBlock(*this);
}

TEST_F(SetBlockTest, LetsTheIndicatorBeSeenBeforeAnythingElseChanges)
{
    world.At(0, [&] {
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_TRUE(panel.waitIndicator.ground.Visible());
        EXPECT_EQ(state.currentBlock, 3);
        EXPECT_THAT(port.history, IsEmpty());
    });
    PressAndConfirm();
}

TEST_F(SetBlockTest, LeavesAllButTheStoredPanelWhenTheOperatorCancels)
{
    const std::vector<std::string> typed = HeaderBoxTexts();
    boxes.ExpectQuestion(kBlocksQuestion, false);
    PressSetBlock(*this);

    EXPECT_EQ(StoredTable(*this), edited_);
    EXPECT_EQ(HeaderBoxTexts(), typed);
    EXPECT_EQ(panel.blockNumber.Text(), "07");
    EXPECT_EQ(state.currentBlock, 3);
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
    EXPECT_FALSE(world.TimerRuns());
}

TEST_F(SetBlockTest, GoesBackToBlock01AndKeepsTheFieldsWhenTheFirstWakeIsNotAnswered)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kBlocksQuestion, true);
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_EQ(state.currentBlock, 7);
    });
    PressSetBlock(*this);

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    ExpectEnd(1, "01", OwnRecord(7), OwnRecord(3));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, LeavesTheIndicatorAndTheNumberWhenTheSecondWakeIsNotAnswered)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "!" : ""; };
    boxes.ExpectQuestion(kBlocksQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    PressSetBlock(*this);

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !",
                                          "> " + HeaderFrame(6, OwnRecord(7)), "> }", "close"));
    EXPECT_EQ(world.Now(), 1000);
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(3));
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    EXPECT_TRUE(panel.waitIndicator.ground.Visible());
}

TEST_F(SetBlockTest, ClearsAnIndicatorThatAFailureBeforeHadLeftOnTheScreen)
{
    panel.waitIndicator.label.Show();
    panel.waitIndicator.ground.Show();

    PressAndConfirm();

    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, SendsTheClosingFrameAlthoughTheHeaderWasLostToAWrongAnswer)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "?" : "!"; };

    PressAndConfirm();

    EXPECT_THAT(port.sent, ElementsAre("}", "}", "b000F500\r"));
    EXPECT_EQ(world.Now(), 400) << "one settle wait, the closing frame's";
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, LosesTheClosingFrameToAWrongAnswer)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "!" : "!!"; };

    PressAndConfirm();

    EXPECT_THAT(port.sent, ElementsAre("}", HeaderFrame(6, OwnRecord(7)), "}"));
    EXPECT_EQ(world.Now(), 401) << "no settle wait after a frame not sent";
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, RunsToItsEndWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};

    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, SettlesFourTicksAfterEachFrame)
{
    PressAndConfirm();

    EXPECT_EQ(world.Now(), 800);
}

TEST_F(SetBlockTest, SettlesLittleMoreThanThreePeriodsWhenTheTimerAlreadyRuns)
{
    world.Enable();
    world.PassTime(98); // the answer comes at 99, the first tick at 100

    PressAndConfirm();

    EXPECT_EQ(world.Now(), 800) << "from 98: the first settle wait took 301, the second 399";
}

TEST_F(SetBlockTest, ReloadsTheBlockThatTheOperatorTypedDuringTheRun)
{
    world.At(500, [&] { panel.blockNumber.SetText("12"); });

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(6, OwnRecord(7)));
    ExpectEnd(12, "12", OwnRecord(12), OwnRecord(12));
}

TEST_F(SetBlockTest, SendsWhatTheBoxesHoldOnceTheUnitIsAwake)
{
    unit.onWake = [&](int wake) {
        if (wake == 1) panel.header[Site].SetText("B");
    };

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], "C06000ROSSI_07BT07 007512+00707070126100730\r") << "unpadded";
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
}

TEST_F(SetBlockTest, SendsTheUnitNothingOfTheCalibrationThatItStores)
{
    panel.calibration[Gain1].SetText("+9.9999");
    panel.blockNumber.SetText("03");
    edited_[2].replace(49, 7, "+9.9999");

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(2, edited_[2]));
    ExpectEnd(3, "03", edited_[2], edited_[2]);
}

TEST_F(SetBlockTest, PassesOverTheStoreAtRecord0)
{
    state.currentBlock = 0;
    edited_ = OwnTable();

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(6, OwnRecord(7)));
    ExpectEnd(7, "07", OwnRecord(7), OwnRecord(7));
}

TEST_F(SetBlockTest, SendsThePanelItselfWhenTheFileCannotBeOpened)
{
    state.headerFilePath = folder.Path();

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], HeaderFrame(6, WithClient("VERDI", OwnRecord(3))));
    EXPECT_EQ(state.currentBlock, 7);
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
    EXPECT_LINK_AT_REST();
}

TEST_F(SetBlockTest, StopsWithoutAnotherStepWhenTheProgramEndsInTheSettleWait)
{
    world.EndProgramAt(250);

    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 250);
    EXPECT_THAT(port.sent, ElementsAre("}", HeaderFrame(6, OwnRecord(7))));
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
}

TEST_F(SetBlockTest, StopsUnderItsQuestionWhenTheProgramEndsThere)
{
    boxes.ExpectQuestion(kBlocksQuestion, true, [&] { world.end.End(0); });
    PressSetBlock(*this);

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(state.currentBlock, 3);
}

} // namespace
} // namespace tarvex::tests
