#pragma once

#include <QColor>

namespace tarvex::survey
{

/// Colours of a plot.
struct PlotColours {
    QColor paper = Qt::white;
    QColor ink = Qt::black;
    QColor grid = QColor(210, 210, 210);

    /// True for light ink on darker paper.
    bool Dark() const { return paper.lightness() < ink.lightness(); }
};

} // namespace tarvex::survey
