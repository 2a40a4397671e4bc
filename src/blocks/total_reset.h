#pragma once

#include "core/header_store.h"
#include "link/device_link.h"

namespace tarvex
{

/// Puts all thirty records back to their defaults, before the first byte goes out, and writes their
/// header parts to the unit. The unit's calibration stays.
void TotalReset(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
                MessageBoxes& boxes);

} // namespace tarvex
