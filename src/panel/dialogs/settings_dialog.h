#pragma once

#include "core/control_panel.h"
#include "core/handlers.h"
#include "core/port_names.h"
#include "link/device_link.h"
#include "link/operator_view.h"
#include "panel/widgets/field_leaving.h"
#include "panel/window/control_table.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string_view>

namespace tarvex::panel
{

/// What the dialogs of the unit's settings work with. All of it outlives them.
struct DialogContext {
    ControlPanel& panel; ///< that of the main form
    Line line;           ///< that of the main form; the dialogs show no wait indicator
    Handlers& handlers;
    PortNames& portNames;
};

/// A dialog that carries one frame of the main form's third tab, made from the same rows of the
/// table but with boxes of its own. Its load stores the panel in the record of `currentBlock`; a
/// failing store ends the program. Deletes itself when closed.
class SettingsDialog : public QWidget
{
public:
    ~SettingsDialog() override;

protected:
    SettingsDialog(const DialogContext& context, const char* name, const char* title,
                   QWidget* parent);

    /// Makes the frame and its controls. `adapt` may change a row before its control is made.
    void MakeFrame(std::string_view frame, const std::function<void(ControlRow&)>& adapt);

    /// Runs `command` at every click on that button.
    void OnClick(const char* button, std::function<void()> command);

    /// Runs `command` on the line, with a link of its own, at every click on that button.
    void OnClickOnLine(const char* button, std::function<void(DeviceLink&, OperatorView&)> command);

    DialogContext context_;
    FieldLeaving leaving_;

    /// The state of this dialog's controls. A command that waits on the line keeps it, for the
    /// operator may close the dialog meanwhile.
    std::shared_ptr<ControlPanel> boxes_ = std::make_shared<ControlPanel>();
};

} // namespace tarvex::panel
