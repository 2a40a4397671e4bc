#pragma once

#include "core/control_panel.h"
#include "core/message_boxes.h"

namespace tarvex::panel
{

/// The check of the dialog's delay when it is left: held between 3 and 9, with a critical box. The
/// panel's own field has none.
void LeaveDelay(TextBox& delay, MessageBoxes& messages);

} // namespace tarvex::panel
