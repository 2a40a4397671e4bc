#include "blocks/block_commands.h"
#include "conversation/fault_sweep.h"
#include "download/block_download.h"
#include "support/report_bytes.h"

namespace tarvex::tests
{

namespace
{

constexpr int kHeaderPages = 10;
constexpr std::size_t kDepth = 3;
constexpr std::size_t kStep = 4;

/// A tube of one metre with a reading at 1.0 and at 0.5.
std::vector<std::string> TubeValues()
{
    return {"ROSSI   ", "DIGA A  ", "T12 ", "0010", "0", "2", "+015", "03", "161126  ", "093015"};
}

std::vector<std::string> TubeRows()
{
    return {RowRecord("001.0", {"+00001", "-00002", "+00003", "-00004"}),
            RowRecord("000.5", {"+00005", "-00006", "+00007", "-00008"})};
}

void PressBlockDownload(TestProgram& program)
{
    program.unit.SetHeader(6, TubeValues());
    program.unit.SetReadings(6, 0, {0x8001, 2, 0x8003, 4});
    program.unit.SetReadings(6, 1, {0x8005, 6, 0x8007, 8});
    program.panel.downloadBlock.SetText("07");
    program.ClickLink([&](DeviceLink& link) {
        BlockDownload(program.panel, program.state, link, program.view, program.world);
    });
}

std::string AddressOf(int wake)
{
    const int page = wake <= kHeaderPages ? wake - 1 : wake - kHeaderPages - 1;
    return std::string(wake <= kHeaderPages ? "060" : "061") + std::to_string(page) + "0";
}

std::string Pairs(const std::string& digits, const std::string& mark)
{
    const auto pair = [&](std::size_t first) {
        return first < digits.size() ? digits.substr(first, 2) : std::string();
    };
    return pair(0) + mark + pair(2) + mark + pair(4);
}

std::string HeadOf(const std::vector<std::string>& values)
{
    const std::string depth =
        values[kDepth].empty() ? "." : values[kDepth].substr(0, 3) + "." + values[kDepth].substr(3);
    return HeadReportOf({"Client: ;" + values[0], "Site:;" + values[1], "Tube no: ;" + values[2],
                         "Depth:;" + depth, "Step:;" + values[kStep], "Guides no: ;" + values[5],
                         "North:;" + values[6], "Readout no:;" + values[7],
                         "Date: ;" + Pairs(values[8], "/"), "Time:;" + Pairs(values[9], ":")});
}

std::string NameOf(const std::vector<std::string>& values, const std::string& ending)
{
    return values[0] + "-" + values[1] + "-" + values[2] + "-" + values[7] + "-" + ending;
}

/// How many data pages the walk asks for: none without a depth, and one when the step is lost, for
/// it then counts as a metre.
int DataPages(const std::vector<std::string>& values)
{
    if (values[kDepth].empty()) return 0;
    return values[kStep].empty() ? 1 : 2;
}

std::vector<std::string> FramesUpTo(int wake)
{
    std::vector<std::string> frames;
    for (int number = 1; number <= wake; ++number)
        frames.push_back("a" + AddressOf(number) + "\r");
    return frames;
}

/// The rows whose pages were not lost, of the pages before wake `end`. A garbled page is a row of
/// the number that four digits which are none make; without a reply after an answered wake the row
/// is blank.
std::vector<std::string> RowsBefore(const FaultAt& at, int end)
{
    const std::string none = "+02184";
    std::vector<std::string> rows;
    for (int wake = kHeaderPages + 1; wake < end; ++wake) {
        const std::size_t row = static_cast<std::size_t>(wake) - 11;
        const std::string depth = row == 0 ? "001.0" : "000.5";
        if (at.fault == Fault::GarbledReply && wake == at.wake) {
            rows.push_back(RowRecord(depth, {none, none, none, none}));
        } else if (at.fault == Fault::PortClosedInReply && wake >= at.wake) {
            rows.push_back(RowRecord(depth, {"", "", "", ""}));
        } else if (!at.LosesPage(wake)) {
            rows.push_back(TubeRows()[row]);
        }
    }
    return rows;
}

EndState AfterBlockDownload(const FaultAt& at)
{
    EndState end = StartState();
    std::vector<std::string> values = TubeValues();
    if (at.StopsRead() && at.wake <= kHeaderPages + 2) {
        end.sent = SentUnder(at, FramesUpTo(at.wake));
        end.readAddress = AddressOf(at.wake);
        end.downloadEnabled = false;
        end.notConnected = at.RunsOut() && at.wake == 1;
        end.finished = end.notConnected;
        end.portOpen = end.indicator = !end.notConnected;
        if (at.wake > kHeaderPages) {
            end.reports[NameOf(values, "dat.dat")] = HeadOf(values);
            end.reports["datiram.dat"] = WorkFileOf(RowsBefore(at, at.wake));
        }
        return end;
    }
    for (int page = 0; page < kHeaderPages; ++page) {
        if (at.LosesPage(page + 1)) values[static_cast<std::size_t>(page)].clear();
    }
    const int lastWake = kHeaderPages + DataPages(values);
    const std::vector<std::string> rows = RowsBefore(at, lastWake + 1);
    end.sent = SentUnder(at, FramesUpTo(lastWake));
    // The walk sets the next page's address before it looks at the depth.
    end.readAddress = AddressOf(lastWake + 1);
    end.reports[NameOf(values, "dat.dat")] = HeadOf(values);
    end.reports["datiram.dat"] = WorkFileOf(rows);
    end.reports[NameOf(values, "num.dat")] = DataReportOf(rows);
    return end;
}

} // namespace

const SweptCommand kBlockDownload = {
    "BlockDownload", PressBlockDownload, nullptr, 12, AfterBlockDownload, true};

} // namespace tarvex::tests
