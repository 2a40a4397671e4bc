#pragma once

#include <array>
#include <string_view>

namespace tarvex::tests
{

/// A survey that is known through and through: as the unit is filled with it, and what goes wrong
/// on the line.
struct KnownSurvey {
    std::string_view name; ///< its client
    std::string_view fill;
    std::string_view fault = "";
};

/// Their reports lie in the folder known_reports/, and the figures that they must give in
/// expected.json.
inline constexpr std::array<KnownSurvey, 13> kKnownSurveys{{
    {"GOOD2", "1:depth=20,client=GOOD2"},
    {"GOOD4", "2:depth=20,client=GOOD4,step=1,guides=4"},
    {"FROZEN", "3:depth=20,client=FROZEN,frozen=12"},
    {"SPIKE", "4:depth=20,client=SPIKE,spike=12.5"},
    {"SWAPPED", "5:depth=20,client=SWAPPED,swapped=7"},
    {"UNREAD", "6:depth=20,client=UNREAD,unread=3.5"},
    {"UNTURNED", "7:depth=20,client=UNTURNED,unturned=1"},
    {"DRIFT", "8:depth=20,client=DRIFT,drift=60"},
    {"GAP", "9:depth=20,client=GAP", "wrong@wake15"},
    {"MOVES", "10:depth=20,client=MOVES,nlet=00,guides=4"},
    {"MOVES", "10:depth=20,client=MOVES,nlet=05,guides=4,moved=5"},
    {"MOVES", "10:depth=20,client=MOVES,nlet=10,guides=4,moved=10"},
    {"MOVES", "10:depth=20.5,client=MOVES,nlet=11,guides=4,moved=10"},
}};

} // namespace tarvex::tests
