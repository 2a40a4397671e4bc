#include "blocks/block_commands.h"

#include "core/header_boxes.h"
#include "core/header_steps.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kDefaultCalibration = "+1.0000+0.0000+1.0000+0.00000";

/// What goes out when the first `count` blocks get their calibration.
std::vector<std::string> BlocksOut(int count)
{
    std::vector<std::string> sent;
    for (int index = 0; index < count; ++index)
        sent.insert(sent.end(), {"}", "D" + BlockAddress(index) + kDefaultCalibration + "\r"});
    return sent;
}

/// The panel shows record 3 of the own table with another client and another gain; the operator has
/// then typed block 7.
class ResetGainZeroTest : public LogicTest
{
protected:
    ResetGainZeroTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI");
        panel.calibration[Gain1].SetText("+9.9999");
        panel.blockNumber.SetText("07");
        edited_[2] = WithClient("VERDI", OwnRecord(3));
        edited_[2].replace(49, 7, "+9.9999");
        typed_ = HeaderOnPanel(*this);
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kGainZeroQuestion, true);
        PressResetGainZero(*this);
    }

    /// The eleven visible boxes and the block's number stay as typed, whatever the end.
    void ExpectEnd(double currentBlock, const std::string& calibration)
    {
        EXPECT_EQ(state.currentBlock, currentBlock);
        EXPECT_EQ(panel.blockNumber.Text(), "07");
        EXPECT_EQ(HeaderOnPanel(*this), typed_);
        EXPECT_EQ(CalibrationOnPanel(*this), calibration);
        EXPECT_EQ(StoredTable(*this), edited_);
    }

    std::vector<std::string> edited_ = OwnTable(); // the file once the panel has been stored
    std::string typed_;
};

TEST_F(ResetGainZeroTest, SendsTheDefaultCalibrationToAllThirtyBlocks)
{
    PressAndConfirm();

    EXPECT_EQ(port.sent, BlocksOut(30));
    EXPECT_EQ(port.sent[1], "D00000+1.0000+0.0000+1.0000+0.00000\r");
    EXPECT_EQ(port.sent[59], "D1D000+1.0000+0.0000+1.0000+0.00000\r");
    ExpectEnd(1, kDefaultCalibration);
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ResetGainZeroTest, RunsItsStepsInTheirOrder)
{
    LogIndicator();
    LogTexts(*this, "Text18", panel.calibration[Gain1]);
    LogTexts(*this, "Text19", panel.calibration[Gain2]);
    LogTexts(*this, "Text20", panel.calibration[Zero1]);
    LogTexts(*this, "Text21", panel.calibration[Zero2]);
    LogTexts(*this, "Text22", panel.calibration[Point]);

    PressAndConfirm();

    std::vector<std::string> expected = {"Label34 on",     "Shape1 on",      "port 1",
                                         "open",           "Text18=+1.0000", "Text20=+0.0000",
                                         "Text19=+1.0000", "Text21=+0.0000", "Text22=0"};
    const std::vector<std::string> sent = BlocksOut(30);
    for (std::size_t frame = 1; frame < sent.size(); frame += 2)
        expected.insert(expected.end(), {"> }", "< !", "> " + sent[frame]});
    expected.insert(expected.end(), {"close", "Label34 off", "Shape1 off"});
    EXPECT_EQ(port.history, expected);
}

TEST_F(ResetGainZeroTest, StoresThePanelBeforeItAsks)
{
    boxes.ExpectQuestion(kGainZeroQuestion, true, [&] {
        EXPECT_EQ(StoredTable(*this), edited_);
        EXPECT_FALSE(panel.waitIndicator.label.Visible());
        EXPECT_EQ(state.currentBlock, 3);
    });
    world.At(0, [&] {
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
        EXPECT_FALSE(port.IsOpen());
        EXPECT_EQ(panel.calibration[Gain1].Text(), "+9.9999");
    });
    PressResetGainZero(*this);
}

TEST_F(ResetGainZeroTest, StoresThePanelAndGoesToBlock1AlsoWhenTheOperatorCancels)
{
    boxes.ExpectQuestion(kGainZeroQuestion, false);
    PressResetGainZero(*this);

    ExpectEnd(1, "+9.9999+0.1003+2.0003+0.2003C");
    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ResetGainZeroTest, LetsASetBlockAfterItStoreThePanelInRecord1)
{
    PressAndConfirm();
    boxes.ExpectQuestion(kBlocksQuestion, false);
    PressSetBlock(*this);

    edited_[0] = WithCalibrationOf(DefaultRecord(1), WithClient("VERDI", OwnRecord(3)));
    ExpectEnd(1, kDefaultCalibration);
}

TEST_F(ResetGainZeroTest, StaysAtIndex0WhenTheFirstWakeIsNotAnswered)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
    });
    PressResetGainZero(*this);

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    ExpectEnd(0, kDefaultCalibration);
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ResetGainZeroTest, LetsASetBlockAfterIndex0PassOverItsStore)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    boxes.Expect(kNotConnected);
    PressResetGainZero(*this);
    unit.answerWake = [](int) { return "!"; };

    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);

    EXPECT_EQ(StoredTable(*this), edited_);
    EXPECT_EQ(port.sent[2], HeaderFrame(6, OwnRecord(7)));
    EXPECT_EQ(state.currentBlock, 7);
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(7)));
}

TEST_F(ResetGainZeroTest, LetsAStepAfterIndex0EndTheProgram)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    boxes.Expect(kNotConnected);
    PressResetGainZero(*this);

    Click([&] { StepRecordUp(panel, state); });

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_TRUE(world.Ended());
    EXPECT_EQ(world.end.Status(), 1);
    ExpectEnd(0, kDefaultCalibration);
}

TEST_F(ResetGainZeroTest, StaysAtTheIndexThatWasNotAnswered)
{
    unit.answerWake = [](int wake) { return wake < 30 ? "!" : ""; };
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    boxes.Expect(kNotConnected);
    PressResetGainZero(*this);

    std::vector<std::string> sent = BlocksOut(29);
    sent.emplace_back("}");
    EXPECT_EQ(port.sent, sent);
    ExpectEnd(29, kDefaultCalibration);
    EXPECT_LINK_AT_REST();
}

TEST_F(ResetGainZeroTest, LosesOneBlocksFrameToAWrongAnswerWithoutItsSettleWait)
{
    unit.answerWake = [](int wake) { return wake == 1 ? "?" : "!"; };

    PressAndConfirm();

    std::vector<std::string> sent = BlocksOut(30);
    sent.erase(sent.begin() + 1);
    EXPECT_EQ(port.sent, sent);
    EXPECT_EQ(world.Now(), 29 * 200);
    ExpectEnd(1, kDefaultCalibration);
}

TEST_F(ResetGainZeroTest, SettlesTwoTicksAfterEachFrame)
{
    PressAndConfirm();

    EXPECT_EQ(world.Now(), 30 * 200);
}

TEST_F(ResetGainZeroTest, ShowsTheDefaultsWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};

    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    ExpectEnd(1, kDefaultCalibration);
    EXPECT_LINK_AT_REST();
}

TEST_F(ResetGainZeroTest, SendsWhatTheHiddenBoxesHoldOnceTheUnitIsAwake)
{
    unit.onWake = [&](int wake) {
        if (wake == 2) LoadCalibration(panel.calibration, StoredHeader(9));
    };

    PressAndConfirm();

    EXPECT_EQ(port.sent[1], BlocksOut(1)[1]);
    EXPECT_EQ(port.sent[3], "D01000+1.0009+0.1009+2.0009+0.2009I\r");
}

TEST_F(ResetGainZeroTest, StopsWithoutAnotherStepWhenTheProgramEndsInASettleWait)
{
    world.EndProgramAt(2 * 200 + 50);

    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent, BlocksOut(3));
    ExpectEnd(2, kDefaultCalibration);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(panel.waitIndicator.label.Visible());
}

} // namespace
} // namespace tarvex::tests
