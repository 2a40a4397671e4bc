#pragma once

#include "core/control_panel.h"
#include "core/current_directory.h"
#include "core/working_state.h"

namespace tarvex
{

/// The load of the main form: working state, port 1, a header file with the thirty default records,
/// and the panel filled from record 1. The header table of a former run is dropped on purpose. No
/// port is opened.
void LoadMainForm(ControlPanel& panel, WorkingState& state,
                  const CurrentDirectory& currentDirectory);

/// Enables the seven controls that need a header file.
void EnableFileCommandGroup(ControlPanel& panel);

/// Disables the same seven.
void DisableFileCommandGroup(ControlPanel& panel);

} // namespace tarvex
