#pragma once

#include <string_view>

/// Everything that names the maker, in one place: a distributor of the program writes other lines
/// here. The packaging reads kMakerName and kMakerHost from this file too.
namespace tarvex::panel
{

inline constexpr std::string_view kMakerName = "Tar Vex Instruments";
inline constexpr std::string_view kMakerAddress = "Example Street 1, 00000 Example Town";
inline constexpr std::string_view kMakerTelephone = "000 0000001";
inline constexpr std::string_view kMakerFax = "000 0000002";
inline constexpr std::string_view kMakerHotLine = "000 0000003";

/// The maker's server; it keeps the manual.
inline constexpr std::string_view kMakerHost = "www.tarvex.example";

} // namespace tarvex::panel
