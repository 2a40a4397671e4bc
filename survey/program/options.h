#pragma once

#include <string>
#include <vector>

namespace tarvex::survey
{

enum class Command { None, Show };

/// What the command line asks for.
struct Options {
    Command command = Command::None;
    std::vector<std::string> files;
    bool json = false;
};

/// Exit statuses: all is well; a check failed; the command line or a file is not usable.
inline constexpr int kGood = 0;
inline constexpr int kCheckFailed = 1;
inline constexpr int kUnusable = 2;

/// A command line that was read, or the status to end with at once: help and version have been
/// printed then, or a mistake told on the standard error.
struct CommandLine {
    Options options;
    bool ends = false;
    int exitStatus = kGood;
};

CommandLine ReadCommandLine(int argc, const char* const* argv);

} // namespace tarvex::survey
