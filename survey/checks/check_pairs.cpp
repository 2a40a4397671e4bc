#include "survey/checks/checks.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <cmath>

namespace tarvex::survey
{

namespace
{
/// The half differences of one pair less those of the other, or their sum when the signs are
/// opposite.
Series Against(const Series& one, const Series& other, double sign)
{
    Series series;
    for (const auto& point : one)
        if (const auto* const match = At(other, point.depth))
            series.push_back({point.depth, point.value - sign * match->value});
    return series;
}

void CheckAgainst(const CheckedSurvey& checked, const Pair& one, const Pair& other)
{
    const auto first = HalfDifferencesOf(checked.survey, one);
    const auto second = HalfDifferencesOf(checked.survey, other);
    // Nothing says which way the second pair looks: the sign that fits is the right one.
    auto series = Against(first, second, 1);
    if (series.empty()) return; // no readings: a missing one is found elsewhere
    const auto opposite = Against(first, second, -1);
    auto summary = SummaryOf(ValuesOf(series));
    const auto turned = SummaryOf(ValuesOf(opposite));
    const bool same = summary.mad <= turned.mad;
    if (!same) {
        series = opposite;
        summary = turned;
    }
    const auto names = one.Difference() + " and " + other.Difference();
    checked.verdict.notes.push_back(names + " have " + (same ? "the same" : "opposite") +
                                    " signs; the standard deviation between them is " +
                                    Decimals(summary.deviation, 1) + " counts");
    if (summary.RobustDeviation() > checked.limits.pairDeviation) {
        checked.Report({"pairs",
                        Remedy::ReadAllAgain,
                        "AB",
                        {},
                        names + " do not follow each other: they differ by " +
                            Decimals(summary.RobustDeviation(), 1) + " counts"});
        return;
    }
    const double reach =
        std::max(checked.limits.outlier * summary.RobustDeviation(), checked.limits.pairDeviation);
    std::vector<int> depths;
    for (const auto& point : series)
        if (std::abs(point.value - summary.median) > reach) depths.push_back(point.depth);
    if (!depths.empty())
        checked.Report({"pairs", Remedy::ReadAgain, "AB", depths, names + " disagree"});
}
} // namespace

void CheckPairs(const CheckedSurvey& checked)
{
    CheckAgainst(checked, kPairs[2], kPairs[1]);
    CheckAgainst(checked, kPairs[3], kPairs[0]);
}

} // namespace tarvex::survey
