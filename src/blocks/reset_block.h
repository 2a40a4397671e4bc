#pragma once

#include "link/device_link.h"

namespace tarvex
{

/// Puts the record of the block in `Text2` back to its defaults, before the first wake, and writes
/// its header part to the unit. On success the port stays open, and the next command works on it.
/// The hidden boxes and the unit's calibration stay.
void ResetBlock(Panel& panel, WorkingState& state, DeviceLink& link, MessageBoxes& boxes);

} // namespace tarvex
