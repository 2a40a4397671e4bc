#include "panel/dialogs/delay_dialog.h"

#include "panel/box_edit.h"
#include "panel/controls.h"
#include "panel/dialogs/delay_check.h"
#include "panel/layouts.h"
#include "panel/noted_boxes.h"
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

    findChild<BoxEdit*>("Text16rt")->OnLeave([this](Qt::FocusReason reason) {
        NotedBoxes boxes(context_.line.boxes);
        context_.handlers.Run([&] { LeaveDelay(boxes_->Text16rt, boxes); });
        if (boxes.shown && reason == Qt::MouseFocusReason) keptPress_.BoxShownInPress();
    });
    OnClickOnLine("Command6scrivi",
                  [boxes = boxes_](DeviceLink& link) { WriteCycleDelay(boxes->Text16rt, link); });
}

} // namespace tarvex::panel
