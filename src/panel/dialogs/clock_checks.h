#pragma once

#include "core/message_boxes.h"
#include "core/panel.h"

#include <array>
#include <string_view>

namespace tarvex::panel
{

/// The checks of one field of the dialog "Set Clock".
struct ClockCheck {
    std::string_view field;                                     ///< the control's name
    void (*keyPressed)(int key, MessageBoxes& boxes);           ///< `key` is a character code
    void (*left)(const ClockBoxes& clock, MessageBoxes& boxes); ///< never changes a text
};

/// The twelve checks: each warns with a critical box and lets the key or the text stand. They
/// belong to the form and are attached to none of its controls: letters and impossible times go to
/// the unit as they are typed, as they do from the panel.
extern const std::array<ClockCheck, 6> kClockChecks;

} // namespace tarvex::panel
