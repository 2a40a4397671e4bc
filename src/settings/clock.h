#pragma once

#include "core/control_panel.h"
#include "link/device_link.h"
#include "link/operator_view.h"

namespace tarvex
{

/// Reads the unit's clock: "H" is answered by 14 bytes, of which twelve are six fields of two
/// digits, year first. They go to `shown`; a form whose boxes the command does not know gives none.
/// The wait for the reply has no limit.
void ReadClock(ClockBoxes* shown, DeviceLink& link, OperatorView& view);

/// Sets the unit's clock after a question: "G" and the six fields as they are in their boxes,
/// year first, unpadded and unchecked. Without a day or without hours nothing is done.
void WriteClock(const ClockBoxes& boxes, DeviceLink& link, OperatorView& view);

/// Starts the unit's clock, "c", after the same question. A service command; it settles one tick
/// longer.
void StartClock(DeviceLink& link, OperatorView& view);

} // namespace tarvex
