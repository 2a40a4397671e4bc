#include "download/head_report.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "download/depth.h"
#include "download/report_opening.h"

#include <array>

namespace tarvex
{

namespace
{

/// Characters 1 and 2, 3 and 4, 5 and 6 of `digits` with `mark` between the pairs, which is
/// there for an empty text too.
std::string Joined(std::string_view digits, std::string_view mark)
{
    std::string joined(Middle(digits, 1, 2));
    joined.append(mark).append(Middle(digits, 3, 2));
    joined.append(mark).append(Middle(digits, 5, 2));
    return joined;
}

/// The labels are read by other programs: with and without a blank before the ";" as they are here.
std::array<std::string, 10> Lines(const HeaderTexts& header)
{
    using enum HeaderBox;
    return {"Client: ;" + header[Client],
            "Site:;" + header[Site],
            "Tube no: ;" + header[Tube],
            "Depth:;" + DepthWithPoint(header),
            "Step:;" + header[Step],
            "Guides no: ;" + header[Guides],
            "North:;" + header[North],
            "Readout no:;" + header[Readout],
            "Date: ;" + Joined(header[Date], "/"),
            "Time:;" + Joined(header[Time], ":")};
}

void PutLine(RecordFile& file, ReportRecord& record, int recordNumber, std::string_view line)
{
    record.text = line;
    record.end = kRecordEnd;
    Attempt([&] { file.Put(recordNumber, record); });
}

} // namespace

void WriteHeadReport(WorkingState& state, const HeaderTexts& header, const ReportFile& file)
{
    RecordFile report(sizeof(ReportRecord));
    Attempt([&] { OpenReport(report, file); });
    int recordNumber = 1;
    for (const std::string& line : Lines(header)) {
        if (recordNumber > 1) PutLine(report, state.reportRecord, recordNumber++, "");
        PutLine(report, state.reportRecord, recordNumber++, line);
    }
    report.Close();
}

} // namespace tarvex
