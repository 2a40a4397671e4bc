#pragma once

#include "core/control_panel.h"
#include "link/memory_page.h"

namespace tarvex
{

/// The bytes of the time's page that are read, unless a command takes fewer.
inline constexpr int kTimeBytes = 8;

/// The pages of one header, each read by an exchange of its own.
inline constexpr int kHeaderPages = 10;

/// Reads the header of block `readAddrBlock` over an open port, page by page in the order of
/// kHeaderBoxes, each after a wake of its own: the first with its limit, the others without. Of
/// each page as many bytes are read as its field has; `timeBytes` of the last. `addressShown` shows
/// the address of each page.
///
/// A page whose wake is answered otherwise than by "!" is passed over, and its texts stay. The one
/// character of the step and of the guides also stays when it cannot be decoded; every other text
/// is then the shorter. False when the first wake ran out: nothing has been read then.
[[nodiscard]] bool ReadHeaderPages(DeviceLink& link, TextBox& addressShown, WorkingState& state,
                                   HeaderTexts& texts, int timeBytes = kTimeBytes);

} // namespace tarvex
