#pragma once

#include "survey/program/options.h"

namespace tarvex::survey
{

/// Writes the files that the options ask for. Returns the exit status and throws Refusal.
int Export(const Options& options);

} // namespace tarvex::survey
