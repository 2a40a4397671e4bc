#include "blocks/block_commands.h"
#include "conversation/fault_sweep.h"

namespace tarvex::tests
{

namespace
{

constexpr const char* kClosing = "b000F500\r";
constexpr const char* kDefaultCalibration = "+1.0000+0.0000+1.0000+0.00000";

std::vector<std::string> FramesOf(const std::vector<std::string>& records)
{
    std::vector<std::string> frames;
    frames.reserve(records.size() + 1);
    for (const std::string& record : records)
        frames.push_back(HeaderFrame(static_cast<int>(frames.size()), record));
    frames.emplace_back(kClosing);
    return frames;
}

/// The path of a header's wake that is not answered.
void EndOnBlock01(EndState& end)
{
    end.notConnected = true;
    end.currentBlock = 1;
    end.text2 = "01";
}

/// The path of the closing frame's wake that is not answered.
void EndWithIndicator(EndState& end, int block)
{
    end.notConnected = true;
    end.indicator = true;
    end.currentBlock = block;
    end.text2 = OwnRecord(block).substr(30, 2);
}

EndState AfterSetBlock(const FaultAt& at)
{
    EndState end = StartState();
    end.table[2] = TypedRecord();
    end.sent = SentUnder(at, {HeaderFrame(6, OwnRecord(7)), kClosing});
    end.header = HeaderPayload(OwnRecord(7));
    end.currentBlock = 7;
    if (at.RunsOut() && at.wake == 1) {
        EndOnBlock01(end);
    } else if (at.RunsOut() && at.wake == 2) {
        EndWithIndicator(end, 7);
    } else {
        end.calibration = CalibrationPayload(OwnRecord(7));
    }
    return end;
}

EndState AfterResetBlock(const FaultAt& at)
{
    EndState end = StartState();
    end.table[6] = DefaultRecord(7);
    end.sent = SentUnder(at, {HeaderFrame(6, DefaultRecord(7)), kClosing});
    end.header = HeaderPayload(DefaultRecord(7));
    end.currentBlock = 7;
    if (at.RunsOut() && at.wake == 1) {
        EndOnBlock01(end);
    } else if (at.RunsOut() && at.wake == 2) {
        EndWithIndicator(end, 7);
    } else {
        const bool closedByAnother = at.fault == Fault::PortClosed && at.wake <= 2;
        end.portOpen = at.fault != Fault::PortGone && !closedByAnother;
    }
    return end;
}

/// The end that Set All and Total Reset have alike, once the file holds `table`.
EndState AfterAllHeaders(const FaultAt& at, const std::vector<std::string>& table)
{
    EndState end = StartState();
    end.table = table;
    end.sent = SentUnder(at, FramesOf(table));
    if (at.RunsOut() && at.wake <= 30) {
        EndOnBlock01(end);
        end.header = HeaderPayload(table[static_cast<std::size_t>(at.wake) - 1]);
    } else if (at.RunsOut() && at.wake == 31) {
        EndWithIndicator(end, 30);
        end.header = HeaderPayload(table[29]);
    } else {
        end.currentBlock = 1;
        end.text2 = "01";
        end.header = HeaderPayload(table[0]);
        end.calibration = CalibrationPayload(table[0]);
    }
    return end;
}

EndState AfterSetAll(const FaultAt& at)
{
    std::vector<std::string> table = OwnTable();
    table[2] = TypedRecord();
    return AfterAllHeaders(at, table);
}

EndState AfterTotalReset(const FaultAt& at)
{
    std::vector<std::string> table;
    for (int number = 1; number <= 30; ++number)
        table.push_back(DefaultRecord(number));
    return AfterAllHeaders(at, table);
}

EndState AfterResetGainZero(const FaultAt& at)
{
    std::vector<std::string> frames;
    for (int index = 0; index < 30; ++index) {
        frames.push_back("D" + BlockAddress(index) + kDefaultCalibration + "\r");
    }
    EndState end = StartState();
    end.table[2] = TypedRecord();
    end.sent = SentUnder(at, frames);
    end.calibration = kDefaultCalibration;
    end.notConnected = at.RunsOut() && at.wake <= 30;
    end.currentBlock = end.notConnected ? at.wake - 1 : 1;
    return end;
}

} // namespace

const SweptCommand kSetBlock = {"SetBlock", PressSetBlock, kBlocksQuestion, 2, AfterSetBlock};
const SweptCommand kSetAll = {"SetAll", PressSetAll, kBlockQuestion, 31, AfterSetAll};
const SweptCommand kResetBlock = {"ResetBlock", PressResetBlock, kBlockQuestion, 2,
                                  AfterResetBlock};
const SweptCommand kTotalReset = {"TotalReset", PressTotalReset, kBlockQuestion, 31,
                                  AfterTotalReset};
const SweptCommand kResetGainZero = {"ResetGainZero", PressResetGainZero, kGainZeroQuestion, 30,
                                     AfterResetGainZero};

} // namespace tarvex::tests
