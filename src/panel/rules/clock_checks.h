#pragma once

#include "core/control_panel.h"
#include "core/message_boxes.h"

#include <array>
#include <string_view>

namespace tarvex::panel
{

/// The checks of one field of the dialog "Set Clock".
struct ClockCheck {
    std::string_view field;                                        ///< the control's name
    void (*keyPressed)(int key, MessageBoxes& messages);           ///< `key` is a character code
    void (*left)(const ClockBoxes& clock, MessageBoxes& messages); ///< never changes a text
};

/// The twelve checks: each warns with a critical box and leaves the key or the text as it is. They
/// are attached to none of the form's controls on purpose: the dialog has to send what the panel
/// sends, and the panel's clock takes letters and impossible times as they are typed. They are kept
/// as the form's exact rules, ready to be attached on the day that the unit is to be guarded.
extern const std::array<ClockCheck, 6> kClockChecks;

} // namespace tarvex::panel
