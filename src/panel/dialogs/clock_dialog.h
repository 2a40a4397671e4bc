#pragma once

#include "panel/dialogs/settings_dialog.h"

namespace tarvex::panel
{

/// `Form2`, "Set Clock": the panel's clock frame on the same line. Reading the clock fills none of
/// its fields, and its checks (clock_checks.h) are attached to none of its controls.
class ClockDialog final : public SettingsDialog
{
public:
    /// Its buttons run their commands with what `context` holds.
    ClockDialog(const DialogContext& context, QWidget* parent);
};

} // namespace tarvex::panel
