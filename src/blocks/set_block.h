#pragma once

#include "core/header_store.h"
#include "link/device_link.h"

namespace tarvex
{

/// Stores the panel in the record of `CurrentBlock`, also when the operator then cancels, and
/// writes the stored header of the block in `Text2` to the unit. The unit's calibration stays.
void SetBlock(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
              MessageBoxes& boxes);

} // namespace tarvex
