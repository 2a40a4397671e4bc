#pragma once

#include "core/header_store.h"
#include "link/device_link.h"

namespace tarvex
{

/// Stores the panel in the record of `CurrentBlock`, the hidden boxes left out, and writes the
/// thirty stored headers to the unit. The panel walks through the blocks, for the frames are built
/// from its boxes. The unit's calibration stays.
void SetAll(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
            MessageBoxes& boxes);

} // namespace tarvex
