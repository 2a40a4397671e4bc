#include "survey/export/sheet.h"

#include "survey/figures/series.h"

namespace tarvex::survey
{

namespace
{
std::vector<SheetCell> RowOf(const Row& row, std::size_t columns, const std::vector<Pair>& pairs)
{
    std::vector<SheetCell> cells{{row.depth / 10.0, 1}};
    for (std::size_t i = 0; i < columns; ++i)
        cells.push_back(
            {row.readings[i] ? std::optional<double>(row.readings[i]->counts) : std::nullopt, 0});
    for (const auto& pair : pairs) {
        const auto first = row.Counts(pair.first);
        const auto second = row.Counts(pair.second);
        const bool both = first && second;
        cells.push_back({both ? std::optional<double>(*first + *second) : std::nullopt, 0});
        cells.push_back({both ? std::optional((*first - *second) / 2.0) : std::nullopt, 1});
    }
    return cells;
}
} // namespace

Sheet SheetOf(const Survey& survey)
{
    const auto columns = ColumnsOf(survey);
    const auto pairs = PairsOf(survey);
    Sheet sheet{{"Depth"}, {}};
    for (std::size_t i = 0; i < columns; ++i)
        sheet.titles.emplace_back(kColumnNames[i]);
    for (const auto& pair : pairs) {
        sheet.titles.push_back(pair.Sum());
        sheet.titles.push_back(pair.Difference());
    }
    for (const auto& row : survey.rows)
        sheet.rows.push_back(RowOf(row, columns, pairs));
    return sheet;
}

} // namespace tarvex::survey
