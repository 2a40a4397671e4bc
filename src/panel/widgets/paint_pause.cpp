#include "panel/widgets/paint_pause.h"

#include <utility>

namespace tarvex::panel
{

PaintPause::PaintPause()
{
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] {
        sinceLast_.start();
        show_();
    });
}

void PaintPause::Show(std::function<void()> show)
{
    show_ = std::move(show);
    const bool mayBeShown =
        !sinceLast_.isValid() || sinceLast_.hasExpired(kMillisecondsBetweenPaints);
    timer_.start(mayBeShown ? 0 : kMillisecondsBetweenPaints);
}

} // namespace tarvex::panel
