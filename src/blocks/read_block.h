#pragma once

#include "link/device_link.h"

namespace tarvex
{

/// Fetches the header of the block in `Text2` from the unit and shows it in `Text3` to `Text13`. A
/// look only: neither `BlockHeader` nor the header file nor `CurrentBlock` changes.
void ReadBlock(Panel& panel, WorkingState& state, DeviceLink& link);

} // namespace tarvex
