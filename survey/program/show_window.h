#pragma once

#include "survey/program/options.h"

namespace tarvex::survey
{

/// Shows the window, with the files and folders of the options if there are any, until it is
/// closed; else with the folder "dati" of the working folder, where the manager puts its reports.
/// Throws Refusal without a display or for a path that is not there. Returns the exit status.
int ShowWindow(const Options& options);

} // namespace tarvex::survey
