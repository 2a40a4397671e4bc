#include "survey/reports/reader.h"

#include "survey/model/readable.h"
#include "survey/reports/anomalies.h"
#include "survey/reports/data_reader.h"
#include "survey/reports/head_reader.h"
#include "survey/reports/records.h"

namespace tarvex::survey
{

namespace
{
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kNoReport =
    "it holds neither the lines of a head report nor the rows of a data report";

Contents Refused(std::string_view reason)
{
    Contents contents;
    contents.refusal = reason;
    return contents;
}

/// Offsets count from the start of the file, mark included.
void MovePastMark(std::vector<Record>& records)
{
    for (auto& record : records)
        record.offset += kUtf8Mark.size();
}

Contents ReadMarked(std::string_view bytes, bool marked)
{
    const auto encoding = marked ? Encoding::Utf8 : Encoding::Windows1252;
    auto records = SplitRecords(bytes, kHeadRecordBytes);
    const bool head = IsHeadReport(records);
    if (!head) records = SplitRecords(bytes, kDataRecordBytes);
    if (marked) MovePastMark(records);
    AnomalyList anomalies;
    if (marked)
        anomalies.AddHarmless({1, 0, {}, true}, "a byte order mark precedes the first record");
    auto contents = head ? ReadHeadReport(records, encoding, anomalies)
                         : ReadDataReport(records, encoding, anomalies);
    if (contents.kind == FileKind::None) return Refused(kNoReport);
    contents.anomalies = anomalies.Take();
    return contents;
}
} // namespace

Contents Read(std::string_view bytes)
{
    if (bytes.empty()) return Refused("it is empty");
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return Refused("it was saved with two bytes a character; save it as plain text");
    const bool marked = bytes.starts_with(kUtf8Mark);
    return ReadMarked(marked ? bytes.substr(kUtf8Mark.size()) : bytes, marked);
}

} // namespace tarvex::survey
