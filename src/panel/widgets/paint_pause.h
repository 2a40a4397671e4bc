#pragma once

#include <functional>
#include <utility>

namespace tarvex::panel
{

/// Has a widget that is to show many changes a second do so a few times a second, and together with
/// the others of its kind, so that they are drawn in one go. What may be shown is shown a little
/// after the change: what changes on the line has the next request sent, and the line is busy while
/// the widgets work. What comes sooner is shown with a later change, or when no more come: so
/// nothing is shown at a moment that no change has chosen.
class PaintPause
{
public:
    static constexpr int kMillisecondsBetweenPaints = 500;

    /// Longer than a wake, its answer and a request take on the line, shorter than a page takes.
    static constexpr int kMillisecondsAfterChange = 20;

    /// Runs `show` when it is time to show a change.
    explicit PaintPause(std::function<void()> show) : show_(std::move(show)) {}
    ~PaintPause();
    PaintPause(const PaintPause&) = delete;
    PaintPause& operator=(const PaintPause&) = delete;

    /// There is something to be shown.
    void NoteChange();

private:
    class Moment;

    std::function<void()> show_;
    bool hasChanged_ = false;
};

} // namespace tarvex::panel
