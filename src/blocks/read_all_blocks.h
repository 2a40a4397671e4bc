#pragma once

#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Copies the headers of all thirty blocks from the unit into the header file, each by way of the
/// panel and as soon as it has been read; a dead unit ends the run at the block where it fell
/// silent. The calibration of all thirty records comes from its boxes.
void ReadAllBlocks(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view);

} // namespace tarvex
