#pragma once

#include "survey/program/options.h"

namespace tarvex::survey
{

/// The commands that print and write no file. Each returns the exit status and throws Refusal;
/// those of several files report each that cannot be used and go on with the next.
int Show(const Options& options);
int CheckAll(const Options& options);
int CompareAll(const Options& options);
int List(const Options& options);

} // namespace tarvex::survey
