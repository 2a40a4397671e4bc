#pragma once

#include "core/header_store.h"
#include "link/device_link.h"

namespace tarvex
{

/// Stores the panel in the record of `CurrentBlock`, also when the operator then cancels, and
/// writes the default calibration to all thirty blocks of the unit. The header file is not given
/// the defaults.
void ResetGainZero(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
                   MessageBoxes& boxes);

} // namespace tarvex
