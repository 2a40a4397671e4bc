#pragma once

#include "survey/program/options.h"

namespace tarvex::survey
{

/// Runs a command that needs no window: its text on the standard output, refusals on the standard
/// error. Returns the exit status.
int Run(const Options& options);

} // namespace tarvex::survey
