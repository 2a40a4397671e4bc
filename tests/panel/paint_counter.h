#pragma once

#include <QEvent>
#include <QWidget>

namespace tarvex::tests
{

/// Counts how often a widget is painted from now on.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

} // namespace tarvex::tests
