#pragma once

#include "survey/figures/pair.h"
#include "survey/model/survey.h"

#include <vector>

namespace tarvex::survey
{

/// A value at a depth, in counts.
struct Point {
    int depth = 0; ///< tenths of a metre
    double value = 0;

    bool operator==(const Point&) const = default;
};

/// Values along the tube, shallowest first. A depth without a value has no point.
using Series = std::vector<Point>;

/// The readings of a column.
Series ReadingsOf(const Survey& survey, Column column);

/// Sums of the opposite readings. The tube's lean cancels in them, so they stay near twice the
/// probe's zero.
Series SumsOf(const Survey& survey, const Pair& pair);

/// Half differences of the opposite readings. The probe's zero cancels in them; what stays is the
/// lean of the tube.
Series HalfDifferencesOf(const Survey& survey, const Pair& pair);

/// The values alone.
std::vector<double> ValuesOf(const Series& series);

/// The point of a depth; null without one.
const Point* At(const Series& series, int depth);

} // namespace tarvex::survey
