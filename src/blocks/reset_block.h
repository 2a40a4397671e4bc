#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Puts the record of the block whose number is shown back to its defaults, before the first wake,
/// and writes its header part to the unit. On success the port stays open, and the next command
/// works on it. The boxes of the calibration and the unit's calibration stay.
void ResetBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                EventPump& pump);

} // namespace tarvex
