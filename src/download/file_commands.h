#pragma once

#include "core/control_panel.h"
#include "core/file_dialog.h"
#include "core/working_state.h"

namespace tarvex
{

/// Takes the header file from the open dialog, which starts in `initialFolder`, and shows its
/// record 1. Whatever bytes are there are shown. An empty name is no choice.
void ChooseHeaderFile(ControlPanel& panel, WorkingState& state, FileDialog& dialog,
                      const std::filesystem::path& initialFolder);

/// Writes thirty records, all of the client "CLIENT0 ", into the file that the save dialog names,
/// and disables what needs a header file until one is chosen. A longer file keeps what
/// follows record 30. A failing step ends the program.
void CreateDefaultHeaderFile(ControlPanel& panel, WorkingState& state, FileDialog& dialog);

/// Shows the save dialog, takes nothing from it, and enables the download.
void EnableDownload(ControlPanel& panel, FileDialog& dialog);

} // namespace tarvex
