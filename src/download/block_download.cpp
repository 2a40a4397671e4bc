#include "download/block_download.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "download/data_report.h"
#include "download/head_report.h"
#include "download/report_opening.h"
#include "download/work_file.h"

namespace tarvex
{

namespace
{

/// The header as the download reads it: of the time it takes six characters, not eight.
constexpr HeaderPages DownloadPages()
{
    HeaderPages pages = kHeaderPages;
    pages.back().byteCount = 6;
    return pages;
}
constexpr HeaderPages kDownloadPages = DownloadPages();

constexpr std::string_view kDataBanks = "123456789ABCDEF";
constexpr std::string_view kPagesOfBank = "0123456789ABCDEF";

void DeleteWhenThere(const ReportFile& file)
{
    Attempt([&] { DeleteFile(file.Path()); });
}

void ShowReportFileName(Panel& panel, WorkingState& state, const ReportFile& file)
{
    state.ReportFileName = file.Shown();
    panel.Text1.SetText(state.ReportFileName);
}

/// "0155" becomes "015.5"; the point stands there for an empty text too.
void ReformatDepth(std::string& depth)
{
    depth = std::string(Middle(depth, 1, 3)) + "." + std::string(Middle(depth, 4, 1));
}

/// The walk over a block's data pages: from the full depth upwards, one page a step.
class DataPageWalk
{
public:
    DataPageWalk(Panel& panel, WorkingState& state, DeviceLink& link, const HeaderValues& values)
        : panel_(panel),
          state_(state),
          link_(link),
          values_(values),
          depth_(NumericValue(values.profondità))
    {
    }

    void Run(RecordFile& workFile)
    {
        for (const char bank : kDataBanks) {
            state_.ReadAddrBank = bank;
            for (const char page : kPagesOfBank) {
                state_.ReadAddrPage = {page, '0'};
                if (!TubeGoesOn()) return;
                ReadRow(workFile);
                depth_ -= values_.passo == "0" ? 0.5 : 1;
            }
        }
    }

private:
    /// With a step of 1 m a remainder below 0.5 still makes a row, with a step of 0.5 m it does
    /// not.
    bool TubeGoesOn() const
    {
        return NumericValue(values_.passo) == 0 ? depth_ >= 0.5 : depth_ > 0;
    }

    /// A page whose wake is answered otherwise than by "!" leaves no row.
    void ReadRow(RecordFile& workFile)
    {
        link_.UntimedWake();
        if (!link_.AnsweredReady()) return;
        ReadPage(link_, panel_, state_);
        FillDataRow(state_, link_.Reply(), depth_, values_.guide == "4");
        WriteDataRow(state_, workFile, recordNumber_);
        ++recordNumber_;
    }

    Panel& panel_;
    WorkingState& state_;
    DeviceLink& link_;
    const HeaderValues& values_;
    double depth_;         // metres
    int recordNumber_ = 3; // behind the title and the blank record
};

} // namespace

void BlockDownload(Panel& panel, WorkingState& state, DeviceLink& link)
{
    SkipOnError rule;
    link.ShowWaitIndicator();
    panel.command3d1.Disable();
    link.DoEvents();
    panel.Picture1.Clear();

    SetReadBlock(state, TwoDigits(NumericValue(panel.numblocco.Text()) - 1));
    link.OpenPort();

    HeaderValues values;
    if (!ReadHeaderPages(link, panel, state, kDownloadPages, values)) return link.EndUnanswered();

    DeleteWhenThere(HeadReportFile(state.ReportFolder, values));
    DeleteWhenThere(DataReportFile(state.ReportFolder, values));
    DeleteWhenThere(WorkFile(state.ReportFolder));

    ReformatDepth(values.profondità);
    ShowReportFileName(panel, state, HeadReportFile(state.ReportFolder, values));
    WriteHeadReport(state, values, HeadReportFile(state.ReportFolder, values));

    ShowReportFileName(panel, state, DataReportFile(state.ReportFolder, values));
    Attempt([&] { DeleteFile("datiram.dat"); }); // one left in the current directory
    RecordFile rows(sizeof(DataRecord));
    Attempt([&] { OpenReport(rows, WorkFile(state.ReportFolder)); });
    WriteTitleRecords(state, rows);
    DataPageWalk(panel, state, link, values).Run(rows);
    rows.Close();

    link.ClosePort();
    panel.command3d1.Enable();
    link.DoEvents();
    link.SettleWait(SettleBound::Above, 4);
    link.StopTick();

    // The folder of this moment: the operator may have chosen another one during the walk.
    const ReportFile dataReport = DataReportFile(state.ReportFolder, values);
    ShowReportFileName(panel, state, dataReport);
    WriteDataReport(state, link, dataReport, WorkFile(state.ReportFolder));
    link.HideWaitIndicator();
    panel.Text1.SetText("");
    link.DoEvents();
}

} // namespace tarvex
