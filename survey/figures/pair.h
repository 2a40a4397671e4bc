#pragma once

#include "survey/model/reading.h"
#include "survey/model/survey.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

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

} // namespace tarvex::survey
