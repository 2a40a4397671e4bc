#pragma once

#include "core/control_panel.h"
#include "core/event_pump.h"
#include "core/working_state.h"
#include "link/device_link.h"
#include "link/operator_view.h"

#include <string_view>

namespace tarvex
{

// What the commands that write headers to the unit share: Set Block, Set All, Reset Block and Total
// Reset. Each write gives false when its wake ran out; the command then ends on the failure that
// belongs to it.

/// The question before headers are written; Set Block asks it in its own words.
inline constexpr std::string_view kAllBlockWillBeLost =
    "ATTENTION: ALL BLOCK MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";

/// How many exchanges such a command consists of.
inline constexpr int kHeaderAndClosing = 2;
inline constexpr int kAllRecordsAndClosing = kBlockCount + 1;

/// The header in the boxes to block `currentBlock`, as both are when the unit has answered the
/// wake.
[[nodiscard]] bool WriteShownHeader(const ControlPanel& panel, const WorkingState& state,
                                    DeviceLink& link, int settleTicks);

/// All thirty records, each shown and then written. `currentBlock` itself counts the blocks, by
/// their index: a command nested in a wait moves the loop. It ends at 30, or at the index of the
/// block whose wake ran out.
[[nodiscard]] bool WriteAllRecords(ControlPanel& panel, WorkingState& state, DeviceLink& link,
                                   EventPump& pump, int settleTicks);

/// The frame that closes the writing of headers, after a wake of its own.
[[nodiscard]] bool WriteClosing(DeviceLink& link, int settleTicks);

/// No answer to the wake of a header: the box, port closed, indicator hidden, block number back to
/// 01. The fields stay those of the block that was reached.
void EndOnFirstFailure(ControlPanel& panel, WorkingState& state, DeviceLink& link,
                       OperatorView& view);

/// No answer to the wake of the closing frame: the box and the port closed. Indicator and block
/// number stay.
void EndOnSecondFailure(DeviceLink& link, OperatorView& view);

} // namespace tarvex
