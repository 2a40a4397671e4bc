#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <functional>

namespace tarvex::panel
{

/// Has a widget that is to show many changes a second do so a few times a second. What may be shown
/// is shown a little after the change: what changes on the line has the next request sent, and the
/// line is busy while the widget works. What comes sooner is shown with a later change, or when no
/// more have come for a while: so nothing is shown at a moment that no change has chosen.
class PaintPause
{
public:
    static constexpr int kMillisecondsBetweenPaints = 240;

    /// Longer than a wake and its answer take on the line, shorter than a request takes.
    static constexpr int kMillisecondsAfterChange = 4;

    /// Changes that come faster than any line brings them leave no such pause: then it is shown
    /// between two of them.
    static constexpr int kMostMillisecondsDue = 100;

    PaintPause();

    /// Runs `show` when it is time; not what was to be shown before and has not been.
    void Show(std::function<void()> show);

private:
    void TakeTimeout();

    QTimer timer_;
    QElapsedTimer sinceShown_;
    QElapsedTimer sinceChange_;
    QElapsedTimer sinceDue_;
    bool isDue_ = false;
    std::function<void()> show_;
};

} // namespace tarvex::panel
