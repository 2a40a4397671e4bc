#include "panel/widgets/paint_pause.h"

namespace tarvex::panel
{

PaintPause::PaintPause(QWidget& widget) : widget_(widget)
{
    noMoreChanges_.setSingleShot(true);
    noMoreChanges_.setInterval(kMillisecondsBetweenPaints);
    noMoreChanges_.callOnTimeout([this] {
        widget_.update();
        sincePaint_.start();
    });
}

void PaintPause::Make(const std::function<void()>& change)
{
    if (!sincePaint_.isValid() || sincePaint_.hasExpired(kMillisecondsBetweenPaints)) {
        change();
        noMoreChanges_.stop();
        sincePaint_.start();
    } else {
        MakeUnpainted(change);
        noMoreChanges_.start();
    }
}

/// The attribute alone, for setUpdatesEnabled() has the widget painted when it is given back, and
/// would leave a hole in the window if it were not.
void PaintPause::MakeUnpainted(const std::function<void()>& change)
{
    const bool held = widget_.testAttribute(Qt::WA_UpdatesDisabled);
    widget_.setAttribute(Qt::WA_UpdatesDisabled);
    change();
    widget_.setAttribute(Qt::WA_UpdatesDisabled, held);
}

} // namespace tarvex::panel
