#pragma once

#include "core/header_store.h"
#include "link/device_link.h"

namespace tarvex
{

/// Copies the headers of all thirty blocks from the unit into the header file, each by way of the
/// panel and as soon as it has been read; a dead unit ends the run at the block where it fell
/// silent. The calibration of all thirty records comes from the hidden boxes.
void ReadAllBlocks(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link);

} // namespace tarvex
