#include "survey/data_reader.h"

#include "survey/row_reader.h"

#include <algorithm>
#include <map>

namespace tarvex::survey
{

namespace
{
constexpr std::string_view kTitle = "depth;a1;b1;a3;b3;a2;b2;a4;b4";
constexpr std::size_t kPastTheEnd = 2; // records at the top of a data report that mean nothing

bool IsTitle(const Record& record)
{
    return Lower(Trimmed(record.text)) == kTitle;
}

/// Collects the rows of one file.
class Rows
{
public:
    Rows(Encoding encoding, AnomalyList& anomalies) : encoding_(encoding), anomalies_(anomalies) {}

    void Take(const Record& record)
    {
        if (Trimmed(record.text).empty()) return;
        if (const auto row = ReadRow(record, encoding_, anomalies_))
            Put(*row, record);
        else
            anomalies_.Add(record, "this record is no row: \"" +
                                       Readable(Trimmed(record.text).substr(0, kShown), encoding_) +
                                       "\"");
    }

    std::vector<Row>& List() { return rows_; }

private:
    static constexpr std::size_t kShown = 24;

    void Put(const Row& row, const Record& record)
    {
        const auto [place, isNew] = places_.insert({row.depth, rows_.size()});
        if (isNew) {
            rows_.push_back(row);
            return;
        }
        auto& first = rows_[place->second];
        // The two reads past the end of the work file may have left the last row read.
        if (first.record <= kPastTheEnd && first.readings == row.readings) {
            first.record = row.record;
            return;
        }
        anomalies_.Add(record,
                       "the depth " + Metres(row.depth) + " m comes again and is passed over");
    }

    Encoding encoding_;
    AnomalyList& anomalies_;
    std::vector<Row> rows_;
    std::map<int, std::size_t> places_; // by depth
};

/// Where the title is: first in a work file, last in a data report.
struct Title {
    std::size_t first = 0; ///< number of its record; 0 without a title
    std::size_t count = 0;
};

Title FindTitle(const std::vector<Record>& records)
{
    Title title;
    for (const auto& record : records) {
        if (!IsTitle(record)) continue;
        if (title.count == 0) title.first = record.number;
        ++title.count;
    }
    return title;
}

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
                              "from here on the records are not cut as the manager cuts them");
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

    Rows rows(encoding, anomalies);
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
