#include "survey/reports/row_list.h"

#include "survey/model/depths.h"
#include "survey/model/text.h"
#include "survey/reports/row_reader.h"

namespace tarvex::survey
{

namespace
{
constexpr std::size_t kPastTheEnd = 2; // records at the top of a data report that mean nothing
constexpr std::size_t kShown = 24;
} // namespace

void RowList::Take(const Record& record)
{
    if (Trimmed(record.text).empty()) return;
    if (const auto row = ReadRow(record, encoding_, anomalies_))
        Put(*row, record);
    else
        anomalies_.Add(record, "this record is no row: \"" +
                                   Readable(Trimmed(record.text).substr(0, kShown), encoding_) +
                                   "\"");
}

void RowList::Put(const Row& row, const Record& record)
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
    anomalies_.Add(record, "the depth " + Metres(row.depth) + " m comes again and is passed over");
}

} // namespace tarvex::survey
