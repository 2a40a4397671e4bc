#pragma once

#include "core/header_store.h"
#include "core/panel.h"
#include "core/working_state.h"

#include <filesystem>
#include <functional>

namespace tarvex
{

/// The folder where the operator works; fails when there is none.
using CurrentDirectory = std::function<std::filesystem::path()>;

/// The system's answer to CurrentDirectory.
std::filesystem::path SystemCurrentDirectory();

/// The load of the main form: working state, port 1, a header file with the thirty default records,
/// and the panel filled from record 1. The header table of a former run is dropped on purpose. No
/// port is opened.
void LoadMainForm(Panel& panel, WorkingState& state, HeaderStore& headers,
                  const CurrentDirectory& currentDirectory);

/// Enables the seven controls that need a header file.
void EnableFileCommandGroup(Panel& panel);

/// Disables the same seven.
void DisableFileCommandGroup(Panel& panel);

} // namespace tarvex
