#pragma once

#include "panel/dialogs/settings_dialog.h"
#include "panel/kept_press.h"

namespace tarvex::panel
{

/// `Form3`, "Delay for Automatic Cycle": the panel's delay on the same line, with the check of its
/// range that the panel lacks.
class DelayDialog final : public SettingsDialog
{
public:
    DelayDialog(const DialogContext& context, QWidget* parent);

private:
    KeptPress keptPress_;
};

} // namespace tarvex::panel
