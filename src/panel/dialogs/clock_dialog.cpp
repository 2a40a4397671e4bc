#include "panel/dialogs/clock_dialog.h"

#include "panel/window/controls.h"
#include "panel/window/layouts.h"
#include "settings/clock.h"

#include <QVBoxLayout>

namespace tarvex::panel
{

ClockDialog::ClockDialog(const DialogContext& context, QWidget* parent)
    : SettingsDialog(context, "Form2", "Set Clock", parent)
{
    boxes_->startClockButton.Show(); // hidden on the panel alone
    MakeFrame("Frame1a", [](ControlRow&) {});
    LayOutClock(*this);
    (new QVBoxLayout(this))->addWidget(&ControlNamed(*this, "Frame1a"));

    OnClickOnLine("ssCommand3",
                  [](DeviceLink& link, OperatorView& view) { ReadClock(nullptr, link, view); });
    OnClickOnLine("ssCommand4", [boxes = boxes_](DeviceLink& link, OperatorView& view) {
        WriteClock(boxes->clock, link, view);
    });
    OnClickOnLine("ssCommand2", StartClock);
}

} // namespace tarvex::panel
