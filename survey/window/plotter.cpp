#include "survey/window/plotter.h"

#include "survey/window/plot_half.h"

#include <qcustomplot.h>

#include <algorithm>

namespace tarvex::survey
{

void Draw(QCustomPlot& plot, const std::vector<PlotPage>& pages, const PlotColours& colours,
          int pagesInARow)
{
    plot.clearPlottables();
    plot.clearItems();
    plot.plotLayout()->clear();
    plot.setBackground(colours.paper);
    plot.setAutoAddPlottableToLegend(false);
    int number = 0;
    for (const auto& page : pages) {
        const Place place{number / pagesInARow * 2, number % pagesInARow * 2};
        DrawHalf(plot, place, page.a, colours);
        DrawHalf(plot, {place.row, place.column + 1}, page.b, colours);
        ++number;
    }
    FitAxes(plot);
}

void FitAxes(QCustomPlot& plot)
{
    constexpr double kMargin = 1.08;
    plot.rescaleAxes();
    double deepest = 1;
    for (int i = 0; i < plot.graphCount(); ++i) {
        bool found = false;
        const auto depths = plot.graph(i)->getKeyRange(found);
        if (found) deepest = std::max(deepest, depths.upper);
    }
    for (auto* const rect : plot.axisRects()) {
        rect->axis(QCPAxis::atBottom)->scaleRange(kMargin);
        rect->axis(QCPAxis::atLeft)->setRange(0, deepest * 1.02);
    }
}

} // namespace tarvex::survey
