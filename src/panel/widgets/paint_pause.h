#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarvex::panel
{

/// Has a widget that shows many changes a second painted a few times a second. A change that may be
/// seen is painted in the next pass of the event queue, the others with the next such change, or
/// when no more have come for a while: so none is painted at a moment that no change has chosen.
class PaintPause
{
public:
    static constexpr int kMillisecondsBetweenPaints = 240;

    /// Holds back the painting of `widget`, which must outlive it.
    explicit PaintPause(QWidget& widget);

    /// Makes a change to the widget.
    void Make(const std::function<void()>& change);

private:
    void MakeUnpainted(const std::function<void()>& change);

    QWidget& widget_;
    QElapsedTimer sincePaint_;
    QTimer noMoreChanges_;
};

} // namespace tarvex::panel
