#pragma once

#include "core/header_boxes.h"
#include "link/device_link.h"

#include <functional>

namespace tarvex
{

// The frames that change the unit's memory. The unit answers none of them, and nothing is read
// back: the only sign of it is the "!" of the wake before. Text goes out as it is in the boxes,
// whose maximum lengths make the widths on the line.

/// The header to the block with that index: "C", the block's base address, the 44 characters of the
/// eleven boxes, CR. Sends nothing unless `blockIndex` equals one of 0 to 29.
void SendHeaderFrame(DeviceLink& link, const HeaderBoxes& boxes, double blockIndex);

/// The calibration to the block with that index: "D", the block's base address, the 29 characters
/// of the five boxes, CR. Sends nothing unless `blockIndex` equals one of 0 to 29.
void SendCalibrationFrame(DeviceLink& link, const CalibrationBoxes& boxes, double blockIndex);

/// "b000F500" and CR: the byte that closes the writing of headers.
void SendClosingFrame(DeviceLink& link);

/// One write exchange: a timed wake, and when it is answered "!", `send` and the settle wait after
/// it. Any other answer loses the frame in silence. False when the wake ran out: nothing has been
/// sent then.
[[nodiscard]] bool WriteExchange(DeviceLink& link, int settleTicks,
                                 const std::function<void()>& send);

} // namespace tarvex
