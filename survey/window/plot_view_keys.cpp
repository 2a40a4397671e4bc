#include "survey/window/plot_view.h"

namespace tarvex::survey
{

/// To the next depth that the newest survey has.
void PlotView::Step(int direction)
{
    if (page_.a.curves.empty()) return;
    const auto& points = page_.a.curves.back().points;
    const survey::Point* next = nullptr;
    for (const auto& point : points) {
        const double away = (point.depth - pointed_) * direction;
        if (away > 0.01 && (next == nullptr || away < (next->depth - pointed_) * direction))
            next = &point;
    }
    if (next == nullptr) return;
    Point(next->depth);
    BringIntoView(next->depth);
    if (keyPointed) keyPointed();
}

void PlotView::Zoom(double factor)
{
    for (auto* const rect : axisRects())
        rect->axis(QCPAxis::atBottom)->scaleRange(factor);
    if (!axisRects().isEmpty()) axisRect(0)->axis(QCPAxis::atLeft)->scaleRange(factor);
    replot(rpQueuedReplot);
}

void PlotView::Move(QCPAxis::AxisType type, double part)
{
    for (auto* const rect : axisRects()) {
        auto* const axis = rect->axis(type);
        axis->moveRange(axis->range().size() * part);
        if (type == QCPAxis::atLeft) break; // the other follows
    }
    replot(rpQueuedReplot);
}

void PlotView::keyPressEvent(QKeyEvent* event)
{
    constexpr double kCloser = 0.8;
    constexpr double kPart = 0.1;
    switch (event->key()) {
    case Qt::Key_Up:
        return Step(-1);
    case Qt::Key_Down:
        return Step(1);
    case Qt::Key_Plus:
        return Zoom(kCloser);
    case Qt::Key_Minus:
        return Zoom(1 / kCloser);
    case Qt::Key_Left:
        return Move(QCPAxis::atBottom, -kPart);
    case Qt::Key_Right:
        return Move(QCPAxis::atBottom, kPart);
    case Qt::Key_PageUp:
        return Move(QCPAxis::atLeft, -kPart);
    case Qt::Key_PageDown:
        return Move(QCPAxis::atLeft, kPart);
    case Qt::Key_Home:
        return ShowAll();
    default:
        QCustomPlot::keyPressEvent(event);
    }
}

} // namespace tarvex::survey
