#pragma once

#include <cstddef>
#include <vector>

namespace tarvex::survey
{

/// Turns a median absolute deviation into the standard deviation of readings that scatter normally.
inline constexpr double kDeviationByMad = 1.4826;

/// The middle of the values, or the mean of the two in the middle; 0 of none.
double Median(std::vector<double> values);

/// Figures of a set of values; all 0 for none.
struct Summary {
    std::size_t count = 0;
    double mean = 0;
    double deviation = 0; ///< standard deviation of a sample; 0 for a single value
    double median = 0;
    double mad = 0; ///< median of the absolute departures from the median

    /// The standard deviation that outliers do not raise.
    double RobustDeviation() const { return kDeviationByMad * mad; }
};

/// The figures of these values, in the values' own unit.
Summary SummaryOf(const std::vector<double>& values);

} // namespace tarvex::survey
