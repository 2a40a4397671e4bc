#include "support/report_bytes.h"

#include <algorithm>

namespace tarvex::tests
{

namespace
{
constexpr std::string_view kEnd = "\r ";
} // namespace

std::string Padded(std::string_view text, std::size_t width)
{
    std::string padded(text.substr(0, width));
    padded.resize(width, ' ');
    return padded;
}

std::string HeadReportOf(const std::vector<std::string>& tenLines)
{
    std::string report;
    for (const std::string& line : tenLines) {
        if (!report.empty()) report.append(40, ' ').append(kEnd);
        report.append(Padded(line, 40)).append(kEnd);
    }
    return report;
}

std::string TitleRecord()
{
    return Padded("Depth;A1;B1;A3;B3;A2;B2;A4;B4", 40).append(71, '\0').append(kEnd);
}

std::string BlankDataRecord()
{
    return std::string(40, ' ').append(71, '\0').append(kEnd);
}

std::string RowRecord(std::string_view depth, const std::vector<std::string>& readings)
{
    std::string row(40, ' ');
    row += Padded(std::string(depth) + ";", 7);
    for (const std::string& reading : readings)
        row += Padded(reading + ";", 8);
    row.resize(111, '\0');
    return row.append(kEnd);
}

std::string WorkFileOf(const std::vector<std::string>& rows)
{
    std::string file = TitleRecord() + BlankDataRecord();
    for (const std::string& row : rows)
        file += row;
    return file;
}

std::string DataReportOf(const std::vector<std::string>& rows)
{
    std::string report = BlankDataRecord() + BlankDataRecord();
    std::for_each(rows.rbegin(), rows.rend(), [&](const std::string& row) { report += row; });
    return report + BlankDataRecord() + TitleRecord();
}

} // namespace tarvex::tests
