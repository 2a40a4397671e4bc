#pragma once

#include "core/panel.h"
#include "link/device_link.h"

namespace tarvex
{

/// Writes the delay of the unit's automatic cycle: "b000F0" and the number in `delay` in its plain
/// form, so that "05" goes out as 5 and a text without a number as 0. No check stands on the value.
void WriteCycleDelay(const TextBox& delay, DeviceLink& link);

} // namespace tarvex
