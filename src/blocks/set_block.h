#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Stores the panel in the record of `currentBlock`, also when the operator then cancels, and
/// writes the stored header of the block whose number is shown to the unit. The unit's calibration
/// stays.
void SetBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
              EventPump& pump);

} // namespace tarvex
