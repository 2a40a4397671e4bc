#pragma once

#include "panel/dialogs/settings_dialog.h"

namespace tarvex::panel
{

/// `Form3`, "Delay for Automatic Cycle": the panel's delay on the same line, with the check of its
/// range that the panel lacks.
class DelayDialog final : public SettingsDialog
{
public:
    /// Its buttons run their commands with what `context` holds.
    DelayDialog(const DialogContext& context, QWidget* parent);
};

} // namespace tarvex::panel
