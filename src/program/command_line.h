#pragma once

#include <optional>
#include <ostream>
#include <span>

namespace tarvex
{

/// Answers the command line where there is nothing to start: "--help" and "--version" on `out`
/// (status 0), and on `error` how the program is called (status 2) after an argument that is
/// neither one of these nor an option of the toolkit. `arguments` begins with the program's name.
/// Needs no display and touches no file.
std::optional<int> AnswerCommandLine(std::span<char* const> arguments, std::ostream& out,
                                     std::ostream& error);

/// Says on `error` that `argument` is not known, and how the program is called; gives status 2.
int RefuseArgument(const char* argument, std::ostream& error);

} // namespace tarvex
