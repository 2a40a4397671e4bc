#include "survey/checks/checks.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <cmath>

namespace tarvex::survey
{

namespace
{
/// Fewer sums than this say nothing of a drift.
constexpr std::size_t kFewestForDrift = 9;

double DriftOf(const Series& sums)
{
    if (sums.size() < kFewestForDrift) return 0;
    const auto values = ValuesOf(sums);
    const auto third = static_cast<std::ptrdiff_t>(values.size() / 3);
    return Median({values.begin(), values.begin() + third}) -
           Median({values.end() - third, values.end()});
}

SumFigures FiguresOf(const Pair& pair, const Series& sums, const Limits& limits)
{
    SumFigures figures{pair, SummaryOf(ValuesOf(sums)), 0, 0, DriftOf(sums), {}};
    const double reach =
        std::max(limits.outlier * figures.summary.RobustDeviation(), limits.outlierFloor);
    if (!sums.empty()) figures.departureDepth = sums.front().depth; // where all are the same
    for (const auto& sum : sums) {
        const double departure = sum.value - figures.summary.median;
        if (std::abs(departure) > std::abs(figures.departure)) {
            figures.departure = departure;
            figures.departureDepth = sum.depth;
        }
        if (std::abs(departure) > reach) figures.outliers.push_back(sum.depth);
    }
    return figures;
}
} // namespace

void CheckSums(const CheckedSurvey& checked, const Pair& pair, bool judged)
{
    const auto figures = FiguresOf(pair, SumsOf(checked.survey, pair), checked.limits);
    checked.verdict.sums.push_back(figures);
    if (!judged) return;
    const std::string channel(1, pair.channel);
    const double deviation = figures.summary.RobustDeviation();
    if (std::abs(figures.drift) > checked.limits.drift)
        checked.Report({"drift",
                        Remedy::ReadAllAgain,
                        channel,
                        {},
                        "the sums " + pair.Sum() + " drift by " + Decimals(figures.drift, 1) +
                            " counts from the deepest third to the shallowest: the probe's zero "
                            "was not stable"});
    else if (deviation > checked.limits.deviation)
        checked.Report(
            {"sums",
             Remedy::ReadAllAgain,
             channel,
             {},
             "the sums " + pair.Sum() + " scatter by " + Decimals(deviation, 1) + " counts"});
    if (!figures.outliers.empty())
        checked.Report({"sums", Remedy::ReadAgain, channel, figures.outliers,
                        "the sum " + pair.Sum() + " is far from the median " +
                            Decimals(figures.summary.median, 1)});
}

} // namespace tarvex::survey
