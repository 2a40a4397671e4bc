#pragma once

#include "survey/checks/check_limits.h"
#include "survey/comparison/compare.h"
#include "survey/comparison/probe.h"
#include "survey/export/csv.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

enum class Command { Window, Show, Check, Compare, Export, List };

/// Where the exports of one survey go; empty where none is asked for, "-" for the standard output.
struct ExportPaths {
    std::string csv;
    std::string json;
    std::string xlsx;
    std::string svg;
    std::string png;
    std::string pdf;

    /// True when at least one export is asked for.
    bool Any() const;
    /// True when at least one of the pictures is: SVG, PNG or PDF.
    bool AnyPicture() const { return !(svg.empty() && png.empty() && pdf.empty()); }
};

/// What the command line asks for.
struct Options {
    Command command = Command::Window;
    std::vector<std::string> files; ///< of compare, the base first; of list, the folder
    bool json = false;
    Limits limits;
    SumFrom sumFrom = SumFrom::Bottom;
    std::optional<Probe> probe;
    std::string base; ///< of an export, the report that its plots compare with
    ExportPaths exports;
    CsvForm csv;
    std::string remark;
};

/// Exit statuses: all is well; a check failed; the command line or a file cannot be used.
inline constexpr int kGood = 0;
inline constexpr int kCheckFailed = 1;
inline constexpr int kUnusable = 2;

/// A command line that was read, or the status to end with at once: help and version have been
/// printed then, or a mistake reported on the standard error.
struct CommandLine {
    Options options;
    bool ends = false;
    int exitStatus = kGood;
};

/// Reads the arguments of `main`, the program's name first, and never throws for a mistake.
CommandLine ReadCommandLine(int argc, const char* const* argv);

} // namespace tarvex::survey
