#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Stores the panel in the record of `currentBlock`, the calibration left out, and writes the
/// thirty stored headers to the unit. The panel walks through the blocks, for the frames are built
/// from its boxes. The unit's calibration stays.
void SetAll(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
            EventPump& pump);

} // namespace tarvex
