#pragma once

#include "core/control_panel.h"
#include "core/working_state.h"

namespace tarvex
{

/// Stores the panel in the record of `currentBlock` and shows the next record, or the same at the
/// end of the table. The calibration is stored but not refreshed, so that it goes along into
/// every record that is left. A failing step ends the program. Nothing happens without a header
/// file.
void StepRecordUp(ControlPanel& panel, WorkingState& state);

/// As StepRecordUp, towards the first record.
void StepRecordDown(ControlPanel& panel, WorkingState& state);

/// Stores the panel in the record of `currentBlock` and moves on by one with the panel as it is, so
/// that the next press stores the same header once more. Nothing happens without a header file.
void CopyHeaderForward(ControlPanel& panel, WorkingState& state);

} // namespace tarvex
