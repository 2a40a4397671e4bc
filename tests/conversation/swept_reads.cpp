#include "blocks/block_commands.h"
#include "blocks/unit_headers.h"
#include "conversation/fault_sweep.h"

namespace tarvex::tests
{

namespace
{

constexpr int kPages = 10;

std::string AddressOf(int index, int page)
{
    return BlockAddress(index).substr(0, 2) + "0" + std::to_string(page) + "0";
}

std::vector<std::string> ReadFramesOf(int index)
{
    std::vector<std::string> frames;
    frames.reserve(kPages);
    for (int page = 0; page < kPages; ++page)
        frames.push_back("a" + AddressOf(index, page) + "\r");
    return frames;
}

/// What the eleven boxes make of ten values: cut, not padded.
std::string OnBoxes(const std::vector<std::string>& values)
{
    std::string text;
    for (std::size_t field = 0; field < values.size(); ++field)
        text += field < 8 ? values[field] : values[field].substr(0, 6);
    return text;
}

/// The command is cut off in a wait without limit.
void WaitForEver(EndState& end)
{
    end.finished = false;
    end.portOpen = true;
    end.indicator = true;
}

EndState AfterReadBlock(const FaultAt& at)
{
    EndState end = StartState();
    end.sent = SentUnder(at, ReadFramesOf(6));
    end.readAddress = AddressOf(6, 9);
    if (at.StopsRead() && at.wake <= kPages) {
        end.readAddress = AddressOf(6, at.wake - 1);
        end.notConnected = at.RunsOut() && at.wake == 1;
        if (!end.notConnected) WaitForEver(end);
        return end;
    }
    std::vector<std::string> values = UnitValues(7);
    for (int page = 0; page < kPages; ++page) {
        if (at.LosesPage(page + 1)) values[static_cast<std::size_t>(page)].clear();
    }
    end.header = OnBoxes(values);
    return end;
}

/// The fault as the block with that index meets it, which has a port of its own.
FaultAt WithinBlock(const FaultAt& at, int index)
{
    const int wake = at.wake - index * kPages;
    return {at.fault, wake >= 1 && wake <= kPages ? wake : kPages + 1};
}

/// The ten values of a block; what is lost stays as it was in the block before.
void TakeBlock(const FaultAt& here, int index, std::vector<std::string>& values)
{
    const std::vector<std::string> own = UnitValues(index + 1);
    for (int page = 0; page < kPages; ++page) {
        const auto field = static_cast<std::size_t>(page);
        if (!here.LosesPage(page + 1)) values[field] = own[field];
    }
}

EndState AfterReadAllBlocks(const FaultAt& at)
{
    EndState end = StartState();
    std::vector<std::string> values(kPages);
    for (int index = 0; index < 30; ++index) {
        const FaultAt here = WithinBlock(at, index);
        const std::vector<std::string> out = SentUnder(here, ReadFramesOf(index));
        end.sent.insert(end.sent.end(), out.begin(), out.end());
        end.text2 = OwnRecord(index + 1).substr(30, 2);
        if (at.StopsRead() && here.wake <= kPages) {
            end.readAddress = AddressOf(index, here.wake - 1);
            end.notConnected = at.RunsOut() && here.wake == 1;
            if (!end.notConnected) WaitForEver(end);
            return end;
        }
        TakeBlock(here, index, values);
        end.table[static_cast<std::size_t>(index)] = RecordOfValues(values, OwnRecord(3));
        end.header = OnBoxes(values);
    }
    end.readAddress = AddressOf(29, 9);
    end.currentBlock = 1;
    end.text2 = "01";
    end.header = HeaderPayload(end.table[0]);
    return end;
}

} // namespace

const SweptCommand kReadBlock = {"ReadBlock", PressReadBlock, nullptr, 10, AfterReadBlock, true};
const SweptCommand kReadAllBlocks = {"ReadAllBlocks", PressReadAllBlocks, nullptr, 300,
                                     AfterReadAllBlocks};

} // namespace tarvex::tests
