#pragma once

#include "core/control_panel.h"
#include "core/event_pump.h"
#include "core/working_state.h"

namespace tarvex
{

/// Gets one record of the header file into the working header, shows its number, lets that be seen,
/// and fills the eleven boxes from the working header. The calibration's boxes stay as they are.
void ShowRecord(ControlPanel& panel, WorkingState& state, EventPump& pump, double recordNumber);

/// Sets `currentBlock` to 1 and shows it.
void GoToFirstBlock(ControlPanel& panel, WorkingState& state);

} // namespace tarvex
