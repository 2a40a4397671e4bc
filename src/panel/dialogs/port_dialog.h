#pragma once

#include "panel/dialogs/settings_dialog.h"
#include "panel/widgets/port_options.h"

#include <memory>

namespace tarvex::panel
{

/// `Form1`, "Serial port RS232": the four port options, of which none is shown as the current
/// choice.
class PortDialog final : public SettingsDialog
{
public:
    /// Its options choose the port of the line that `context` holds.
    PortDialog(const DialogContext& context, QWidget* parent);

private:
    std::unique_ptr<PortOptions> options_;
};

} // namespace tarvex::panel
