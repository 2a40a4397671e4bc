#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tarvex::survey
{

/// The ten values of a head report, without the blanks at their ends, in UTF-8.
struct Head {
    std::string client;
    std::string site;
    std::string tube;
    std::string depth; ///< as "030.0", metres
    std::string step;  ///< "0" is 0.5 m, all else 1 m
    std::string guides;
    std::string north;
    std::string readout;
    std::string date; ///< as "16/11/26": day, month, year
    std::string time; ///< as "09:30:15"

    bool operator==(const Head&) const = default;
};

/// The values of a head under the names that the files of this program give them.
struct HeadField {
    std::string_view label; ///< as the head report writes it, without colon and blanks
    std::string_view name;  ///< one word, as JSON names it
    std::string Head::*value;
};

inline constexpr std::array<HeadField, 10> kHeadFields{{{"Client", "client", &Head::client},
                                                        {"Site", "site", &Head::site},
                                                        {"Tube no", "tube", &Head::tube},
                                                        {"Depth", "depth", &Head::depth},
                                                        {"Step", "step", &Head::step},
                                                        {"Guides no", "guides", &Head::guides},
                                                        {"North", "north", &Head::north},
                                                        {"Readout no", "readout", &Head::readout},
                                                        {"Date", "date", &Head::date},
                                                        {"Time", "time", &Head::time}}};

} // namespace tarvex::survey
