#pragma once

#include "core/panel.h"
#include "link/device_link.h"

#include <functional>

namespace tarvex
{

// The frames that change the unit's memory. The unit answers none of them, and nothing is read
// back: the only sign of it is the "!" of the wake before. Text goes out as it stands in the boxes,
// whose maximum lengths make the widths on the line.

/// The ten fields of a header to the block with that index: "C", the block's base address, 44
/// characters from `Text3` to `Text13`, CR. Sends nothing unless `blockIndex` equals one of 0
/// to 29.
void SendHeaderFrame(DeviceLink& link, const Panel& panel, double blockIndex);

/// The calibration to the block with that index: "D", the block's base address, 29 characters as
/// gain1, zero1, gain2, zero2, punto, CR. Sends nothing unless `blockIndex` equals one of 0 to 29.
void SendCalibrationFrame(DeviceLink& link, const Panel& panel, double blockIndex);

/// "b000F500" and CR: the byte that closes the writing of headers.
void SendClosingFrame(DeviceLink& link);

/// One write exchange: a timed wake, and when it is answered "!", `send` and the settle wait behind
/// it. Any other answer loses the frame in silence. False when the wake ran out: nothing has been
/// sent then.
[[nodiscard]] bool WriteExchange(DeviceLink& link, const std::function<void()>& send,
                                 SettleBound bound, int settleTicks);

} // namespace tarvex
