#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace tarvex::survey
{

/// Called now and then with the number of files or surveys looked at so far.
using Progress = std::function<void(std::size_t)>;

/// Files or surveys between two calls of a Progress.
inline constexpr std::size_t kProgressSteps = 256;

/// The two reports of a survey; empty where there is none.
struct ReportPair {
    std::filesystem::path head;
    std::filesystem::path data;
};

/// Reports by folder and name without the ending, in small letters.
using FoundReports = std::map<std::string, ReportPair>;

/// The reports below a folder, by their names alone. Follows no link to a folder and skips what may
/// not be read. Throws Refusal for what is no folder.
FoundReports FindReports(const std::filesystem::path& folder, const Progress& progress);

} // namespace tarvex::survey
