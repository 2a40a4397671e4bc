#pragma once

#include <QPaintEvent>
#include <QWidget>

namespace tarvex::tests
{

/// Counts how often a widget is painted from now on, and notes which part of it.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;
    QRegion painted;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::Paint) return false;
        ++paints;
        painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

} // namespace tarvex::tests
