#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace tarvex::panel
{

/// Has a widget that is to show many changes a second do so a few times a second. What may be shown
/// is shown in the next pass of the event queue, not by the change itself: after a change on the
/// line the next request goes out first, and the line is busy while the widget works. What comes
/// sooner is shown with a later change, or when no more have come for a while: so nothing is shown
/// at a moment that no change has chosen.
class PaintPause
{
public:
    static constexpr int kMillisecondsBetweenPaints = 240;

    PaintPause();

    /// Runs `show` when it is time; not what was to be shown before and has not been.
    void Show(std::function<void()> show);

private:
    QTimer timer_;
    QElapsedTimer sinceLast_;
    std::function<void()> show_;
};

} // namespace tarvex::panel
