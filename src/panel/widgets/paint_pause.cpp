#include "panel/widgets/paint_pause.h"

#include <utility>

namespace tarvex::panel
{

PaintPause::PaintPause()
{
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] { TakeTimeout(); });
}

void PaintPause::Show(std::function<void()> show)
{
    show_ = std::move(show);
    sinceChange_.start();
    if (isDue_ && timer_.isActive()) return;
    isDue_ = !sinceShown_.isValid() || sinceShown_.hasExpired(kMillisecondsBetweenPaints);
    if (isDue_) {
        sinceDue_.start();
        timer_.start(kMillisecondsAfterChange);
    } else if (!timer_.isActive()) {
        timer_.start(kMillisecondsBetweenPaints);
    }
}

/// The timer is not started again at every change, which would take as long as to show it.
void PaintPause::TakeTimeout()
{
    const int pause = isDue_ ? kMillisecondsAfterChange : kMillisecondsBetweenPaints;
    const qint64 left = pause - sinceChange_.elapsed();
    const bool isLate = isDue_ && sinceDue_.hasExpired(kMostMillisecondsDue);
    if (left > 0 && !isLate) return timer_.start(static_cast<int>(left));
    sinceShown_.start();
    show_();
}

} // namespace tarvex::panel
