#include "survey/reports/data_reader.h"

#include "survey/model/depths.h"
#include "survey/model/text.h"
#include "survey/reports/row_list.h"
#include "survey/reports/row_reader.h"
#include "survey/reports/title.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
/// A report without a title is recognised by a row just as the manager writes it.
bool HasPlainRow(const std::vector<Record>& records)
{
    return std::ranges::any_of(records,
                               [](const Record& record) { return IsPlainRow(record.text); });
}

void Sort(std::vector<Row>& rows, bool deepestFirst, const std::vector<Record>& records,
          AnomalyList& anomalies)
{
    if (deepestFirst) std::ranges::reverse(rows);
    const auto odd = std::ranges::is_sorted_until(rows, {}, &Row::depth);
    if (odd == rows.end()) return;
    anomalies.Add(records[odd->record - 1],
                  "the depth " + Metres(odd->depth) + " m is out of order");
    std::ranges::stable_sort(rows, {}, &Row::depth);
}

void NoteLayout(const std::vector<Record>& records, AnomalyList& anomalies)
{
    const auto changed = std::ranges::find(records, false, &Record::asWritten);
    if (changed != records.end())
        anomalies.AddHarmless(*changed,
                              "from here on the records are not as long as the manager's");
    const auto filled = std::ranges::find_if(records, [](const Record& record) {
        return record.asWritten && (IsTitle(record) || Trimmed(record.text).empty()) &&
               record.text.find('\0') == std::string_view::npos;
    });
    if (filled != records.end())
        anomalies.AddHarmless(*filled, "there are blanks where the manager writes NUL bytes");
}

FileKind KindBy(const Title& title, const std::vector<Row>& rows)
{
    bool work = rows.size() > 1 && rows.front().depth > rows.back().depth;
    if (title.count > 0) work = rows.empty() ? title.first == 1 : rows.front().record > title.first;
    return work ? FileKind::WorkFile : FileKind::DataReport;
}
} // namespace

Contents ReadDataReport(const std::vector<Record>& records, Encoding encoding,
                        AnomalyList& anomalies)
{
    const auto title = FindTitle(records);
    if (title.count == 0 && !HasPlainRow(records)) return {};

    RowList rows(encoding, anomalies);
    for (const auto& record : records)
        if (!IsTitle(record)) rows.Take(record);

    Contents contents;
    contents.rows = std::move(rows.List());
    contents.kind = KindBy(title, contents.rows);
    if (title.count == 0)
        anomalies.Add(records.back(), "the title is missing: the file may be cut short");
    else if (title.count > 1)
        anomalies.Add(records[title.first - 1], "the title comes more than once");
    Sort(contents.rows, contents.kind == FileKind::WorkFile, records, anomalies);
    NoteLayout(records, anomalies);
    return contents;
}

} // namespace tarvex::survey
