#pragma once

#include <optional>
#include <string>

namespace tarvex::unit
{

/// What the command line of the tap asks for.
struct TapOptions {
    std::string device;
    std::string link; ///< empty: no link
    std::string log;  ///< "-" is the standard output
};

/// The options, or the status to exit with: 0 after the help, another one after a mistake, which
/// the standard error names.
struct TapCommandLine {
    TapOptions options;
    std::optional<int> exitStatus;
};

/// Reads the arguments of `main`, the program's name first. Prints the help, the version or the
/// mistake itself, and never throws for a mistake.
TapCommandLine ReadTapCommandLine(int argc, const char* const* argv);

} // namespace tarvex::unit
