#include "survey/reports/row_reader.h"
#include "survey/model/depths.h"
#include "survey/model/number_text.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
constexpr std::size_t kFewestReadings = 4;
constexpr std::size_t kShown = 24; // characters of a text that is no reading

/// Depth and readings, without the empty columns at the end.
std::vector<std::string_view> Cells(std::string_view text)
{
    auto cells = Split(Trimmed(text), ';');
    std::ranges::transform(cells, cells.begin(), Trimmed);
    while (!cells.empty() && cells.back().empty())
        cells.pop_back();
    return cells;
}

bool HasSign(std::string_view text)
{
    return text.starts_with('+') || text.starts_with('-');
}

constexpr std::size_t kDigits = 5;

/// A reading of the unit. A spreadsheet may have taken "+" and the leading zeros away; where they
/// are, all five digits must be there, or the reading was cut.
std::optional<Reading> ReadingOf(std::string_view text)
{
    const bool minus = text.starts_with('-');
    const bool plus = text.starts_with('+');
    if (HasSign(text)) text.remove_prefix(1);
    const bool padded = plus || (text.size() > 1 && text.starts_with('0'));
    if (padded && text.size() != kDigits) return std::nullopt;
    const auto size = WholeNumber(text);
    if (!size || *size > kLargestReading) return std::nullopt;
    return Reading{minus ? -*size : *size, minus && *size == 0};
}

bool IsPlainReading(std::string_view text)
{
    return text.size() == kDigits + 1 && HasSign(text) && WholeNumber(text.substr(1));
}
} // namespace

bool IsPlainRow(std::string_view text)
{
    const auto cells = Cells(text);
    return cells.size() > kFewestReadings && cells.size() <= kColumns + 1 &&
           TenthsOf(cells.front()) && std::all_of(cells.begin() + 1, cells.end(), IsPlainReading);
}

std::optional<Row> ReadRow(const Record& record, Encoding encoding, AnomalyList& anomalies)
{
    auto cells = Cells(record.text);
    if (!record.ended && !cells.empty() && !Trimmed(record.text).ends_with(';')) {
        anomalies.Add(record, "the file ends within this record");
        cells.pop_back(); // nobody knows how long it was to be
    }
    const auto depth = cells.empty() ? std::nullopt : TenthsOf(cells.front());
    if (!depth) return std::nullopt;

    Row row{*depth, {}, record.number};
    const auto count = cells.size() - 1;
    if (count != kFewestReadings && count != kColumns)
        anomalies.Add(record, "it holds " + std::to_string(count) + " readings at " +
                                  Metres(*depth) + " m, not 4 or 8");
    for (std::size_t i = 0; i < std::min(count, kColumns); ++i) {
        row.readings[i] = ReadingOf(cells[i + 1]);
        if (!row.readings[i])
            anomalies.Add(record, std::string(kColumnNames[i]) + " at " + Metres(*depth) +
                                      " m is not a reading: \"" +
                                      Readable(cells[i + 1].substr(0, kShown), encoding) + "\"");
    }
    return row;
}

} // namespace tarvex::survey
