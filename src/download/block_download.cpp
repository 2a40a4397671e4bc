#include "download/block_download.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "download/data_report.h"
#include "download/depth.h"
#include "download/head_report.h"
#include "download/report_opening.h"
#include "download/work_file.h"
#include "link/header_pages.h"
#include "link/operation_end.h"

namespace tarvex
{

namespace
{

constexpr int kTicksBeforeTheReport = 5;
constexpr int kTimeBytesRead = 6; // without the two blanks
constexpr std::string_view kDataBanks = "123456789ABCDEF";
constexpr std::string_view kPagesOfBank = "0123456789ABCDEF";
constexpr int kMostDataPages = static_cast<int>(kDataBanks.size() * kPagesOfBank.size());

/// As a rule there is none; the unit waits meanwhile, and a look costs less than a failure.
void DeleteWhenThere(const ReportFile& file)
{
    Attempt([&] { DeleteFileWhenThere(file.Path()); });
}

/// Reports of the same name from an earlier download, and a work file that one has left.
void DeleteEarlierFiles(const WorkingState& state, const HeaderTexts& header)
{
    DeleteWhenThere(HeadReportFile(state.reportFolder, header));
    DeleteWhenThere(DataReportFile(state.reportFolder, header));
    DeleteWhenThere(WorkFile(state.reportFolder));
}

void ShowReportFileName(ControlPanel& panel, WorkingState& state, const ReportFile& file)
{
    state.reportFileName = file.Shown();
    panel.reportFile.SetText(state.reportFileName);
}

/// The walk over a block's data pages: from the full depth upwards, one page a step.
class DataPageWalk
{
public:
    DataPageWalk(ControlPanel& panel, WorkingState& state, DeviceLink& link,
                 const HeaderTexts& header)
        : panel_(panel),
          state_(state),
          link_(link),
          endsAtHalf_(NumericValue(header[HeaderBox::Step]) == 0),
          step_(header[HeaderBox::Step] == "0" ? 0.5 : 1),
          fourGuides_(header[HeaderBox::Guides] == "4"),
          depth_(NumericValue(DepthWithPoint(header)))
    {
    }

    /// As many as Run reads.
    int PageCount() const
    {
        int pages = 0;
        for (double depth = depth_; pages < kMostDataPages && TubeGoesOn(depth); depth -= step_)
            ++pages;
        return pages;
    }

    void Run(RecordFile& workFile)
    {
        for (const char bank : kDataBanks) {
            state_.readAddrBank = bank;
            for (const char page : kPagesOfBank) {
                state_.readAddrPage = {page, '0'};
                if (!TubeGoesOn(depth_)) return;
                ReadRow(workFile);
                depth_ -= step_;
            }
        }
    }

private:
    /// With a step of 1 m a remainder below 0.5 still makes a row, with a step of 0.5 m it does
    /// not.
    bool TubeGoesOn(double depth) const { return endsAtHalf_ ? depth >= 0.5 : depth > 0; }

    /// A page whose wake is answered otherwise than by "!" leaves no row.
    void ReadRow(RecordFile& workFile)
    {
        link_.UntimedWake();
        if (!link_.AnsweredReady()) return;
        ReadPage(link_, panel_.readAddress, state_);
        FillDataRow(state_, link_.Reply(), depth_, fourGuides_);
        WriteDataRow(state_, workFile, recordNumber_);
        ++recordNumber_;
    }

    ControlPanel& panel_;
    WorkingState& state_;
    DeviceLink& link_;
    bool endsAtHalf_;
    double step_; // metres
    bool fourGuides_;
    double depth_;         // metres
    int recordNumber_ = 3; // after the title and the blank record
};

/// Fills the work file with all rows of the block, the deepest first.
void DownloadRows(ControlPanel& panel, WorkingState& state, DeviceLink& link,
                  const HeaderTexts& header)
{
    Attempt([&] { DeleteFileWhenThere("datiram.dat"); }); // one left in the current directory
    RecordFile rows(sizeof(DataRecord));
    Attempt([&] { OpenReport(rows, WorkFile(state.reportFolder)); });
    WriteTitleRecords(state, rows);
    DataPageWalk walk(panel, state, link, header);
    link.ExpectExchanges(kHeaderPages + walk.PageCount());
    walk.Run(rows);
    rows.Close();
}

} // namespace

void BlockDownload(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                   EventPump& pump)
{
    SkipOnError rule;
    link.ExpectExchanges(kHeaderPages + kMostDataPages);
    view.ShowWaitIndicator();
    panel.downloadButton.Disable();
    pump.DoEvents();
    panel.drawing.Clear();

    SetReadBlock(state, NumericValue(panel.downloadBlock.Text()));
    link.OpenPort();

    HeaderTexts header;
    if (!ReadHeaderPages(link, panel.readAddress, state, header, kTimeBytesRead))
        return EndUnanswered(link, view);

    DeleteEarlierFiles(state, header);

    ShowReportFileName(panel, state, HeadReportFile(state.reportFolder, header));
    WriteHeadReport(state, header, HeadReportFile(state.reportFolder, header));

    ShowReportFileName(panel, state, DataReportFile(state.reportFolder, header));
    DownloadRows(panel, state, link, header);

    link.ClosePort();
    panel.downloadButton.Enable();
    pump.DoEvents();
    link.SettleWait(kTicksBeforeTheReport);
    link.StopTick();

    // The folder of this moment: the operator may have chosen another one during the walk.
    const ReportFile dataReport = DataReportFile(state.reportFolder, header);
    ShowReportFileName(panel, state, dataReport);
    WriteDataReport(state, pump, dataReport, WorkFile(state.reportFolder));
    view.HideWaitIndicator();
    panel.reportFile.SetText("");
    pump.DoEvents();
}

} // namespace tarvex
