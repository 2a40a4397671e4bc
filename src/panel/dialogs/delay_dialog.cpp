#include "panel/dialogs/delay_dialog.h"

#include "panel/rules/delay_check.h"
#include "panel/widgets/box_edit.h"
#include "panel/window/controls.h"
#include "panel/window/layouts.h"
#include "settings/cycle_delay.h"

#include <QVBoxLayout>

namespace tarvex::panel
{

DelayDialog::DelayDialog(const DialogContext& context, QWidget* parent)
    : SettingsDialog(context, "Form3", "Delay for Automatic Cycle", parent)
{
    MakeFrame("Frame1parametri", [](ControlRow& row) {
        if (row.name == "Command6scrivi") row.caption = "Set";
    });
    LayOutParameters(*this);
    (new QVBoxLayout(this))->addWidget(&ControlNamed(*this, "Frame1parametri"));

    leaving_.RunOnLeaving(
        *findChild<BoxEdit*>("Text16rt"),
        [form = boxes_](MessageBoxes& messages) { LeaveDelay(form->cycleDelay, messages); });
    OnClickOnLine("Command6scrivi", [boxes = boxes_](DeviceLink& link, OperatorView& view) {
        WriteCycleDelay(boxes->cycleDelay, link, view);
    });
}

} // namespace tarvex::panel
