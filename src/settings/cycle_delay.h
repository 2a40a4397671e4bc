#pragma once

#include "core/control_panel.h"
#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Writes the delay of the unit's automatic cycle: "b000F0" and the number in `delay` in its plain
/// form, so that "05" goes out as 5 and a text without a number as 0. The value is not checked.
void WriteCycleDelay(const TextBox& delay, DeviceLink& link, OperatorView& view);

} // namespace tarvex
