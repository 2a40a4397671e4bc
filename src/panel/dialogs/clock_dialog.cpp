#include "panel/dialogs/clock_dialog.h"

#include "panel/controls.h"
#include "panel/layouts.h"
#include "settings/clock.h"

#include <QVBoxLayout>

namespace tarvex::panel
{

ClockDialog::ClockDialog(const DialogContext& context, QWidget* parent)
    : SettingsDialog(context, "Form2", "Set Clock", parent)
{
    boxes_->ssCommand2.Show(); // hidden on the panel alone
    MakeFrame("Frame1a", [](ControlRow&) {});
    LayOutClock(*this);
    (new QVBoxLayout(this))->addWidget(&ControlNamed(*this, "Frame1a"));

    OnClickOnLine("ssCommand3", [](DeviceLink& link) { ReadClock(nullptr, link); });
    OnClickOnLine("ssCommand4",
                  [boxes = boxes_, &messages = context_.line.boxes](DeviceLink& link) {
                      WriteClock(boxes->Clock, link, messages);
                  });
    OnClickOnLine("ssCommand2", [&messages = context_.line.boxes](DeviceLink& link) {
        StartClock(link, messages);
    });
}

} // namespace tarvex::panel
