#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Puts all thirty records back to their defaults, before the first byte goes out, and writes their
/// header parts to the unit. The unit's calibration stays.
void TotalReset(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                EventPump& pump);

} // namespace tarvex
