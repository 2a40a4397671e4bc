#pragma once

#include "core/file_dialog.h"
#include "core/header_store.h"
#include "core/panel.h"
#include "core/working_state.h"

namespace tarvex
{

/// Stores the panel in the record of `CurrentBlock` and shows the next record, or the same at the
/// end of the table. The hidden boxes are stored but not refreshed, so that they go along into
/// every record that is left. A failing step ends the program. Nothing happens without a header
/// file.
void StepRecordUp(Panel& panel, WorkingState& state, HeaderStore& headers);

/// As StepRecordUp, towards the first record.
void StepRecordDown(Panel& panel, WorkingState& state, HeaderStore& headers);

/// Stores the panel in the record of `CurrentBlock` and moves on by one with the panel as it is, so
/// that the next press stores the same header once more. Nothing happens without a header file.
void CopyHeaderForward(Panel& panel, WorkingState& state, HeaderStore& headers);

/// Takes the header file from the open dialog, which starts in `initialFolder`, and shows its
/// record 1. Whatever bytes stand there are shown. An empty name is no choice.
void ChooseHeaderFile(Panel& panel, WorkingState& state, HeaderStore& headers, FileDialog& dialog,
                      const std::filesystem::path& initialFolder);

/// Writes thirty records, all of the client "CLIENT0 ", into the file that the save dialog names,
/// and disables what needs a header file until one is chosen. A longer file keeps what stands
/// behind record 30. A failing step ends the program.
void CreateDefaultHeaderFile(Panel& panel, WorkingState& state, FileDialog& dialog);

/// Shows the save dialog, takes nothing from it, and enables the download.
void EnableDownload(Panel& panel, FileDialog& dialog);

} // namespace tarvex
