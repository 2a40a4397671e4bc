#include "survey/figures/series.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
template <typename Combine>
Series Combined(const Survey& survey, const Pair& pair, Combine combine)
{
    Series series;
    for (const auto& row : survey.rows) {
        const auto first = row.Counts(pair.first);
        const auto second = row.Counts(pair.second);
        if (first && second) series.push_back({row.depth, combine(*first, *second)});
    }
    return series;
}
} // namespace

Series ReadingsOf(const Survey& survey, Column column)
{
    Series series;
    for (const auto& row : survey.rows)
        if (const auto counts = row.Counts(column))
            series.push_back({row.depth, static_cast<double>(*counts)});
    return series;
}

Series SumsOf(const Survey& survey, const Pair& pair)
{
    return Combined(survey, pair,
                    [](int first, int second) { return static_cast<double>(first + second); });
}

Series HalfDifferencesOf(const Survey& survey, const Pair& pair)
{
    return Combined(survey, pair, [](int first, int second) { return (first - second) / 2.0; });
}

std::vector<double> ValuesOf(const Series& series)
{
    std::vector<double> values;
    values.reserve(series.size());
    for (const auto& point : series)
        values.push_back(point.value);
    return values;
}

const Point* At(const Series& series, int depth)
{
    const auto found = std::ranges::lower_bound(series, depth, {}, &Point::depth);
    return found != series.end() && found->depth == depth ? &*found : nullptr;
}

} // namespace tarvex::survey
