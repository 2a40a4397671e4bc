#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Stores the panel in the record of `currentBlock`, also when the operator then cancels, and
/// writes the default calibration to all thirty blocks of the unit. The header file is not given
/// the defaults.
void ResetGainZero(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                   EventPump& pump);

} // namespace tarvex
