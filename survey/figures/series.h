#pragma once

#include "survey/model/survey.h"

#include <array>
#include <string>
#include <string_view>
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

/// One channel in the two guides that face each other.
struct Pair {
    Column first;
    Column second;
    char channel;
    std::string_view guides; ///< "1 and 3"

    std::string Sum() const;        ///< "A1+A3"
    std::string Difference() const; ///< "(A1-A3)/2"
};

inline constexpr std::array<Pair, 4> kPairs{{{Column::A1, Column::A3, 'A', "1 and 3"},
                                             {Column::B1, Column::B3, 'B', "1 and 3"},
                                             {Column::A2, Column::A4, 'A', "2 and 4"},
                                             {Column::B2, Column::B4, 'B', "2 and 4"}}};

/// The pairs that a survey has: two, or four with four guides.
std::vector<Pair> PairsOf(const Survey& survey);

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
