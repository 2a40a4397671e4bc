#pragma once

#include "survey/window/plot_page.h"

#include <QColor>

class QCPAxisRect;
class QCustomPlot;

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

/// Draws pages into a plot, each as two axis rectangles side by side with depth downward, so many
/// pages in a row; what it showed before is gone. Lines differ by colour and dash; outliers
/// have a cross in a ring.
void Draw(QCustomPlot& plot, const std::vector<PlotPage>& pages, const PlotColours& colours,
          int pagesInARow = 4);

/// Every axis back to all of its curves.
void FitAxes(QCustomPlot& plot);

} // namespace tarvex::survey
