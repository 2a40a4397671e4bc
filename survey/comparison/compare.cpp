#include "survey/comparison/compare.h"

#include "survey/comparison/doubts.h"
#include "survey/comparison/same_tube.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
Series DifferencesOf(const Series& base, const Series& now, int deeper, double sign)
{
    Series differences;
    for (const auto& point : now)
        if (const auto* const before = At(base, point.depth - deeper))
            differences.push_back({point.depth, point.value - sign * before->value});
    return differences;
}

Series Cumulated(Series series, SumFrom from)
{
    double sum = 0;
    const auto add = [&](Point& point) { point.value = sum += point.value; };
    if (from == SumFrom::Bottom)
        std::for_each(series.rbegin(), series.rend(), add);
    else
        std::for_each(series.begin(), series.end(), add);
    return series;
}

/// Whether the readings are the base's with the other sign, far better than with their own.
bool IsOpposite(const Series& differences, const Series& sums)
{
    constexpr double kSharper = 4;
    constexpr double kFloor = 10; // counts; a straight tube fits either way
    const double right = SummaryOf(ValuesOf(differences)).mad;
    return right > kFloor && right > kSharper * SummaryOf(ValuesOf(sums)).mad;
}

ComparedPair ComparePair(const Survey& base, const Survey& now, const Pair& pair, int deeper,
                         SumFrom from)
{
    const auto before = HalfDifferencesOf(base, pair);
    const auto after = HalfDifferencesOf(now, pair);
    ComparedPair compared{pair, DifferencesOf(before, after, deeper, 1), {}, {}, {}, false};
    compared.cumulative = Cumulated(compared.differences, from);
    compared.baseSums = SummaryOf(ValuesOf(SumsOf(base, pair)));
    compared.sums = SummaryOf(ValuesOf(SumsOf(now, pair)));
    compared.opposite = IsOpposite(compared.differences, DifferencesOf(before, after, deeper, -1));
    return compared;
}
} // namespace

bool Comparison::Suspicious() const
{
    return std::ranges::any_of(pairs, &ComparedPair::opposite);
}

Comparison Compare(const Survey& base, const Survey& now, SumFrom from)
{
    Comparison comparison;
    comparison.refusal = OtherTube(base, now);
    if (!comparison.refusal.empty()) return comparison;
    comparison.deeper = DepthOf(now) - DepthOf(base);
    NoteDoubts(base, now, comparison);
    for (const auto& pair : PairsOf(now)) {
        comparison.pairs.push_back(ComparePair(base, now, pair, comparison.deeper, from));
        if (comparison.pairs.back().opposite)
            comparison.notes.push_back("the half differences " + pair.Difference() +
                                       " are those of the base with the other sign: the guides "
                                       "were taken the other way round");
    }
    return comparison;
}

} // namespace tarvex::survey
