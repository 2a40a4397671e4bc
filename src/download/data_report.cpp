#include "download/data_report.h"

#include "core/failure_rule.h"
#include "download/report_opening.h"

namespace tarvex
{

namespace
{

/// What the report has for a record past the end of the work file: the file's own blank
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
        Attempt([&] { work.Get(count, state.dataRecordIn); });
        ++count;
    }
    return count;
}

} // namespace

void WriteDataReport(WorkingState& state, EventPump& pump, const ReportFile& reportFile,
                     const ReportFile& workFile)
{
    RecordFile report(sizeof(DataRecord));
    Attempt([&] { OpenReport(report, reportFile); });
    RecordFile work(sizeof(DataRecord));
    Attempt([&] { OpenReport(work, workFile); });
    if (!work.IsOpen()) WaitForEver(pump);

    int writeNumber = 1;
    for (int readNumber = CountRecords(state, work); readNumber >= 1; --readNumber) {
        Attempt([&] {
            work.Get(readNumber, state.dataRecordIn);
            if (work.EndOfFile()) state.dataRecordIn = BlankRecord();
        });
        state.dataRecord = state.dataRecordIn;
        Attempt([&] { report.Put(writeNumber, state.dataRecord); });
        ++writeNumber;
    }
    report.Close();
    work.Close();
}

} // namespace tarvex
