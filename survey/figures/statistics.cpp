#include "survey/figures/statistics.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tarvex::survey
{

namespace
{
double SampleDeviation(const std::vector<double>& values, double mean)
{
    if (values.size() < 2) return 0;
    double squares = 0;
    for (const double value : values)
        squares += (value - mean) * (value - mean);
    return std::sqrt(squares / static_cast<double>(values.size() - 1));
}
} // namespace

double Median(std::vector<double> values)
{
    if (values.empty()) return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    if (values.size() % 2 == 1) return *middle;
    return (*std::max_element(values.begin(), middle) + *middle) / 2;
}

Summary SummaryOf(const std::vector<double>& values)
{
    Summary summary;
    summary.count = values.size();
    if (values.empty()) return summary;
    summary.mean =
        std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
    summary.deviation = SampleDeviation(values, summary.mean);
    summary.median = Median(values);
    auto departures = values;
    for (double& value : departures)
        value = std::abs(value - summary.median);
    summary.mad = Median(std::move(departures));
    return summary;
}

} // namespace tarvex::survey
