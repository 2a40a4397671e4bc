#pragma once

#include "panel/window/control_table.h"

class QWidget;

namespace tarvex::panel
{

/// Makes the widget of one row of the table, with its name, texts and accessible name, on the
/// widget that its parent row made; it follows its part of the model from now on. A tab has no
/// widget of its own, and its tab strip already has it: null.
QWidget* MakeControl(const ControlRow& row, ControlPanel& panel, QWidget& window);

/// The control of that name on the form; it must be there.
QWidget& ControlNamed(QWidget& window, std::string_view name);

} // namespace tarvex::panel
