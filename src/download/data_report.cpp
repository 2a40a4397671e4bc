#include "download/data_report.h"

#include "core/failure_rule.h"
#include "download/report_opening.h"

namespace tarvex
{

namespace
{

/// What stands in the report for a record past the end of the work file: the file's own blank
/// record.
DataRecord BlankRecord()
{
    DataRecord blank;
    blank.text = "";
    blank.end = kRecordEnd;
    return blank;
}

/// The count that the reversal starts from: the reading goes on until a record is missing, and
/// counts from 1, so that it ends two above the number of records.
int CountRecords(WorkingState& state, RecordFile& work)
{
    int count = 1;
    while (!work.EndOfFile()) {
        Attempt([&] { work.Get(count, state.DataRecordIn); });
        ++count;
    }
    return count;
}

} // namespace

void WriteDataReport(WorkingState& state, DeviceLink& link, const ReportFile& reportFile,
                     const ReportFile& workFile)
{
    RecordFile report(sizeof(DataRecord));
    Attempt([&] { OpenReport(report, reportFile); });
    RecordFile work(sizeof(DataRecord));
    Attempt([&] { OpenReport(work, workFile); });
    if (!work.IsOpen()) link.WaitForEver();

    int writeNumber = 1;
    for (int readNumber = CountRecords(state, work); readNumber >= 1; --readNumber) {
        Attempt([&] {
            work.Get(readNumber, state.DataRecordIn);
            if (work.EndOfFile()) state.DataRecordIn = BlankRecord();
        });
        state.DataRecord = state.DataRecordIn;
        Attempt([&] { report.Put(writeNumber, state.DataRecord); });
        ++writeNumber;
    }
    report.Close();
    work.Close();
}

} // namespace tarvex
