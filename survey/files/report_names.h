#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex::survey
{

/// How the names of the two reports of a survey end, in small letters.
inline constexpr std::string_view kHeadEnding = "-dat.dat";
inline constexpr std::string_view kDataEnding = "-num.dat";

/// The file beside a report that belongs to it, if it is there: "…-num.dat" for "…-dat.dat" and the
/// other way round. Nothing for any other name.
std::optional<std::filesystem::path> PartnerOf(const std::filesystem::path& path);

/// A path for people, in UTF-8.
std::string Shown(const std::filesystem::path& path);

} // namespace tarvex::survey
