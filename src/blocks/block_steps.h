#pragma once

#include "core/panel.h"
#include "core/working_state.h"
#include "link/device_link.h"

#include <string_view>

namespace tarvex
{

/// The question of the commands that write headers; Set Block asks it in its own words.
inline constexpr std::string_view kAllBlockWillBeLost =
    "ATTENTION: ALL BLOCK MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";

/// Gets one record of the header file into `BlockHeader`, shows its number in `Text2`, lets that be
/// seen, and fills `Text3` to `Text13` from `BlockHeader`. The hidden boxes stay as they are.
void ShowRecord(Panel& panel, WorkingState& state, DeviceLink& link, double recordNumber);

/// Sets `CurrentBlock` to 1 and shows it in `Text2`.
void GoToFirstBlock(Panel& panel, WorkingState& state);

/// No answer to the wake of a header: the box, port closed, indicator hidden, block number back to
/// 01. The fields stay those of the block that was reached.
void EndOnFirstFailure(Panel& panel, WorkingState& state, DeviceLink& link);

/// No answer to the wake of the closing frame: the box and the port closed. Indicator and block
/// number stay.
void EndOnSecondFailure(DeviceLink& link);

} // namespace tarvex
