#pragma once

#include "unit/faults.h"
#include "unit/fill_text.h"
#include "unit/pacer.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvex::unit
{

/// What the command line asks for; an empty path asks for nothing.
struct Options {
    std::string link;
    std::string memory;
    std::string log;    ///< "-" is the standard output
    std::string replay; ///< a record to answer from, in place of a memory
    bool demo = false;
    std::vector<Fill> fills;
    std::vector<Fault> faults;
    Pace pace = Pace::Line;
    Time awake{0};               ///< how long it stays awake where a sleep would be felt
    std::optional<Time> adapter; ///< latency of a USB adapter between the unit and the manager
    std::string clock;           ///< YYMMDDhhmmss; empty is the time of the machine
    bool clockStopped = false;
};

/// The options of the command line, or the status to exit with: 0 after the help, another one after
/// a mistake, which has been reported on the standard error.
struct CommandLine {
    Options options;
    std::optional<int> exitStatus;
};

/// Reads the arguments of `main`, the program's name first. Prints the help, the version or the
/// mistake itself, and never throws for a mistake.
CommandLine ReadCommandLine(int argc, const char* const* argv);

} // namespace tarvex::unit
