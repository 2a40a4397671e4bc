#pragma once

#include "survey/checks/verdict.h"

#include <string>

namespace tarvex::survey
{

/// For a terminal: the line, then one line a reason, the figures of the sums, the notes.
std::string TextOf(const Verdict& verdict);

} // namespace tarvex::survey
