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

/// The name without its ending, in small letters, which both reports of a survey have; of any other
/// file the whole name.
std::string StemOf(const std::filesystem::path& path);

/// True when both are files of one survey, or the same file, however their folder is written.
bool AreOfOneSurvey(const std::filesystem::path& one, const std::filesystem::path& other);

/// A path for people, in UTF-8.
std::string Shown(const std::filesystem::path& path);

} // namespace tarvex::survey
