#pragma once

#include "panel/window/commands.h"

#include <QMenu>

#include <functional>

namespace tarvex::panel
{

/// The service list: the commands of the hidden buttons, and the dialogs that no button opens, for
/// those who know its key. A command that is not built is listed and disabled.
class ServiceList final : public QMenu
{
public:
    /// Calls `run` with the command that is chosen.
    ServiceList(QWidget* parent, const std::function<void(Command)>& run);

    /// In the middle of its window, ready for the keyboard.
    void PopUp();
};

} // namespace tarvex::panel
