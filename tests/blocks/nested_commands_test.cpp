#include "blocks/block_commands.h"

#include "core/header_steps.h"
#include "settings/cycle_delay.h"
#include "support/logic_test.h"

#include <algorithm>

namespace tarvex::tests
{
namespace
{

using ::testing::Contains;

/// Set All on the own table from record 3 on: the answer to wake n comes at 200 x (n - 1) + 10, and
/// the settle wait after it ends at 200 x n. Another command starts inside one of its waits.
class NestedInSetAllTest : public LogicTest
{
protected:
    NestedInSetAllTest()
    {
        OpenOwnTableAt(*this, 3);
        unit.latency = 10;
    }

    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kBlockQuestion, true);
        PressSetAll(*this);
    }

    void StepUpAt(Milliseconds moment)
    {
        world.At(moment, [&] { Click([&] { StepRecordUp(panel, state); }); });
    }

    void WriteDelayAt(Milliseconds moment)
    {
        world.At(moment, [&] {
            ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.cycleDelay, link, view); });
        });
    }

    static std::vector<std::string> HeadersOut(int firstIndex, int lastIndex)
    {
        std::vector<std::string> sent;
        for (int index = firstIndex; index <= lastIndex; ++index)
            sent.insert(sent.end(), {"}", HeaderFrame(index, OwnRecord(index + 1))});
        return sent;
    }

    static std::vector<std::string> Joined(std::vector<std::string> first,
                                           const std::vector<std::string>& second)
    {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    void ExpectSuccessEnd()
    {
        EXPECT_EQ(state.currentBlock, 1);
        EXPECT_EQ(panel.blockNumber.Text(), "01");
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(1)));
        EXPECT_LINK_AT_REST();
        EXPECT_EQ(finishedHandlers, 2);
    }
};

TEST_F(NestedInSetAllTest, StepUpInASettleWaitSkipsTheNextBlock)
{
    StepUpAt(4 * 200 + 50); // after the header of block 5

    PressAndConfirm();

    std::vector<std::string> sent = Joined(HeadersOut(0, 4), HeadersOut(6, 29));
    sent.insert(sent.end(), {"}", "b000F500\r"});
    EXPECT_EQ(port.sent, sent);
    // The index that counts the loop named record 4, where the panel of block 5 was stored.
    std::vector<std::string> stored = OwnTable();
    stored[3] = WithCalibrationOf(OwnRecord(3), OwnRecord(5));
    EXPECT_EQ(StoredTable(*this), stored);
    ExpectSuccessEnd();
}

TEST_F(NestedInSetAllTest, StepUpInAWakeMakesThatExchangeTheNextBlocks)
{
    world.At(4 * 200 + 5, [&] {
        Click([&] { StepRecordUp(panel, state); });
        EXPECT_EQ(state.currentBlock, 5);
        EXPECT_EQ(panel.blockNumber.Text(), "05");
    });

    PressAndConfirm();

    // Block 5's frame would have been due; the boxes show record 5, and the index names block 6.
    std::vector<std::string> sent = Joined(HeadersOut(0, 3), {"}", HeaderFrame(5, OwnRecord(5))});
    sent = Joined(sent, HeadersOut(6, 29));
    sent.insert(sent.end(), {"}", "b000F500\r"});
    EXPECT_EQ(port.sent, sent);
    ExpectSuccessEnd();
}

TEST_F(NestedInSetAllTest, StepUpAtTheLastBlockEndsTheLoopAsBefore)
{
    StepUpAt(29 * 200 + 50);

    PressAndConfirm();

    EXPECT_EQ(port.sent, Joined(HeadersOut(0, 29), {"}", "b000F500\r"}));
    ExpectSuccessEnd();
}

TEST_F(NestedInSetAllTest, StepDownRepeatsABlock)
{
    world.At(4 * 200 + 50, [&] { Click([&] { StepRecordDown(panel, state); }); });

    PressAndConfirm();

    // From index 4 to 3, and on with 4: record 4 has become block 5's header.
    std::vector<std::string> sent = Joined(HeadersOut(0, 4), HeadersOut(4, 29));
    sent.insert(sent.end(), {"}", "b000F500\r"});
    EXPECT_EQ(port.sent, sent);
    ExpectSuccessEnd();
}

TEST_F(NestedInSetAllTest, StepUpAtIndex0EndsTheProgramAndSetAllWithIt)
{
    StepUpAt(50);

    PressAndConfirm();

    EXPECT_TRUE(unhandledFailure.has_value());
    EXPECT_EQ(world.end.Status(), 1);
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent, HeadersOut(0, 0));
    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_EQ(world.Now(), 50);
}

TEST_F(NestedInSetAllTest, LeavesTheRuleOfSetAllInForceAfterACommandWithoutIt)
{
    StepUpAt(4 * 200 + 50);
    world.At(10 * 200 + 50, [&] { state.headerFilePath.clear(); }); // every later get fails

    PressAndConfirm();

    EXPECT_FALSE(unhandledFailure.has_value());
    EXPECT_EQ(finishedHandlers, 2);
    EXPECT_EQ(port.sent.size(), 2U * 29U + 2U);
    EXPECT_LINK_AT_REST();
}

TEST_F(NestedInSetAllTest, ACommandThatClosesThePortLetsItRunToItsEndInSilence)
{
    WriteDelayAt(4 * 200 + 50);
    LogTexts(*this, "Text2", panel.blockNumber);

    PressAndConfirm();

    EXPECT_EQ(port.sent, Joined(HeadersOut(0, 4), {"}", "b000F03\r"}));
    EXPECT_THAT(port.history, Contains("Text2=30"));
    EXPECT_EQ(std::count(port.history.begin(), port.history.end(), "close"), 1);
    EXPECT_EQ(std::count(port.history.begin(), port.history.end(), "open"), 1);
    EXPECT_EQ(StoredTable(*this), OwnTable());
    ExpectSuccessEnd();
    // The last answer taken was "!", and no later one replaces it: the settle waits still run.
    // 25 blocks and the closing frame, two ticks each, after the nested command's own wait.
    EXPECT_EQ(world.Now(), 1000 + 26 * 200);
}

TEST_F(NestedInSetAllTest, ACommandThatClosesThePortInTheFirstWakeLetsItEndAtOnce)
{
    WriteDelayAt(5);
    PressAndConfirm();

    // The delay's wake takes the answer to the header's, and only then comes its own.
    EXPECT_EQ(port.sent, (std::vector<std::string>{"}", "}", "b000F03\r"}));
    ExpectSuccessEnd();
    EXPECT_EQ(world.Now(), 200);
}

TEST_F(NestedInSetAllTest, ASilentUnitIsReportedByTheNestedCommandAndAgainByItself)
{
    unit.answerWake = [](int wake) { return wake < 5 ? "!" : ""; };
    WriteDelayAt(4 * 200 + 50);
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    boxes.Expect(kNotConnected, [&] { EXPECT_FALSE(port.IsOpen()); });

    PressSetAll(*this);

    EXPECT_EQ(port.sent, Joined(HeadersOut(0, 3), {"}", "}"}));
    EXPECT_EQ(world.Now(), 4 * 200 + 600) << "the tick of 850 was the first after the reset";
    EXPECT_EQ(state.currentBlock, 1);
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(5)));
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(NestedInSetAllTest, ACancelledResetOfGainAndZeroMovesTheLoopBack)
{
    world.At(4 * 200 + 50, [&] {
        boxes.ExpectQuestion(kGainZeroQuestion, false);
        PressResetGainZero(*this);
    });

    PressAndConfirm();

    // The question was cancelled: the port stayed open, CurrentBlock became 1, and the loop goes on
    // with index 2.
    std::vector<std::string> sent = Joined(HeadersOut(0, 4), HeadersOut(2, 29));
    sent[2 * 5 + 2 * (3 - 2) + 1] =
        HeaderFrame(3, WithCalibrationOf(OwnRecord(3), OwnRecord(5))); // stored by the reset
    sent.insert(sent.end(), {"}", "b000F500\r"});
    EXPECT_EQ(port.sent, sent);
    ExpectSuccessEnd();
}

TEST_F(NestedInSetAllTest, TheProgramsEndUnderANestedBoxEndsBoth)
{
    unit.answerWake = [](int wake) { return wake < 6 ? "!" : ""; };
    WriteDelayAt(4 * 200 + 50);
    boxes.ExpectQuestion(kBlockQuestion, true);
    boxes.Expect(kNotConnected, [&] { world.end.End(0); });

    PressSetAll(*this);

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(port.sent, Joined(HeadersOut(0, 4), {"}"}));
    EXPECT_EQ(state.currentBlock, 4);
}

TEST_F(LogicTest, StepUpInTheWakeOfSetBlockSendsTheNextRecordToTheNextBlock)
{
    OpenOwnTableAt(*this, 3);
    unit.latency = 10;
    world.At(5, [&] { Click([&] { StepRecordUp(panel, state); }); });
    boxes.ExpectQuestion(kBlocksQuestion, true);

    PressSetBlock(*this);

    EXPECT_EQ(port.sent,
              (std::vector<std::string>{"}", HeaderFrame(3, OwnRecord(4)), "}", "b000F500\r"}));
    EXPECT_EQ(panel.blockNumber.Text(), "04");
    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 2);
}

} // namespace
} // namespace tarvex::tests
