#include "conversation/fault_sweep.h"

#include "support/logic_test.h"

#include <algorithm>

namespace tarvex::tests
{
namespace
{

/// Every wake of a short command. Of the three hundred of Read All Blocks, which are thirty times
/// the same ten, those of the first two blocks and then every page somewhere among the others.
int NextWake(int wake, const SweptCommand& command)
{
    constexpr int kShort = 40;
    constexpr int kTwoBlocks = 20;
    constexpr int kStride = 27;
    if (command.wakes <= kShort || wake < kTwoBlocks) return wake + 1;
    return std::min(wake + kStride, command.wakes + 1);
}

std::string FaultName(Fault fault)
{
    constexpr const char* kNames[] = {"silent",
                                      "adapter pulled",
                                      "wrong answer",
                                      "doubled",
                                      "long answer",
                                      "port closed",
                                      "port missing",
                                      "flooded answer",
                                      "port closed under the answer",
                                      "program ends",
                                      "silent reply",
                                      "short reply",
                                      "long reply",
                                      "garbled reply",
                                      "port closed in the reply",
                                      "adapter pulled in the reply",
                                      "program ends in the reply"};
    return kNames[static_cast<std::size_t>(fault)];
}

class FaultSweepTest : public ::testing::TestWithParam<SweptCommand>
{
protected:
    /// Lets the fault strike at every wake in turn, and once after the last.
    void ExpectWhatItShouldLeaveUnder(Fault fault)
    {
        const SweptCommand& command = GetParam();
        int wake = 1;
        bool struck = true;
        while (struck && !HasFailure()) {
            SCOPED_TRACE(FaultName(fault) + " at wake " + std::to_string(wake));
            struck = RunAndCompare(command, {fault, wake});
            EXPECT_EQ(struck, wake <= command.wakes);
            if (struck) wake = NextWake(wake, command);
        }
    }
};

TEST_P(FaultSweepTest, LeavesWhatItShouldWhereverAFaultStrikes)
{
    for (const Fault fault : kFaults)
        ExpectWhatItShouldLeaveUnder(fault);
}

TEST_P(FaultSweepTest, LeavesWhatItShouldWhenThePortCannotBeOpened)
{
    EXPECT_FALSE(RunAndCompare(GetParam(), {Fault::PortGone, 1}));
}

class ReadFaultSweepTest : public FaultSweepTest
{
};

TEST_P(ReadFaultSweepTest, LeavesWhatItShouldWhereverAReplyFails)
{
    for (const Fault fault : kReadFaults)
        ExpectWhatItShouldLeaveUnder(fault);
}

INSTANTIATE_TEST_SUITE_P(Reads, ReadFaultSweepTest,
                         ::testing::Values(kReadBlock, kReadAllBlocks, kBlockDownload), RowName());

class OneBlockFaultSweepTest : public FaultSweepTest
{
};

TEST_P(OneBlockFaultSweepTest, LeavesWhatItShouldWhereverAReplyIsOfNoUse)
{
    for (const Fault fault : kOneBlockFaults)
        ExpectWhatItShouldLeaveUnder(fault);
}

INSTANTIATE_TEST_SUITE_P(Reads, OneBlockFaultSweepTest,
                         ::testing::Values(kReadBlock, kBlockDownload), RowName());

INSTANTIATE_TEST_SUITE_P(Commands, FaultSweepTest,
                         ::testing::Values(kReadBlock, kReadAllBlocks, kSetBlock, kSetAll,
                                           kResetBlock, kTotalReset, kResetGainZero,
                                           kBlockDownload),
                         RowName());

} // namespace
} // namespace tarvex::tests
