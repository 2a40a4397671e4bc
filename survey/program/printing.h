#pragma once

#include "survey/program/options.h"

namespace tarvex::survey
{

/// The commands that print and write no file. Each returns the exit status and throws Refusal.
int Show(const Options& options);
int CheckAll(const Options& options);
int CompareAll(const Options& options);
int List(const Options& options);

} // namespace tarvex::survey
