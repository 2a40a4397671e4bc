#include "survey/window/plotter.h"

#include "survey/window/plot_half.h"

#include <qcustomplot.h>

#include <algorithm>

namespace tarvex::survey
{

void Draw(QCustomPlot& plot, const std::vector<PlotPage>& pages, const PlotColours& colours,
          Arrangement arrangement)
{
    plot.clearPlottables();
    plot.clearItems();
    plot.plotLayout()->clear();
    plot.setBackground(colours.paper);
    plot.setAutoAddPlottableToLegend(false);
    int number = 0;
    for (const auto& page : pages) {
        const bool beside = arrangement == Arrangement::SideBySide;
        DrawHalf(plot, {0, beside ? number * 2 : number}, page.a, colours);
        DrawHalf(plot, {beside ? 0 : 2, beside ? number * 2 + 1 : number}, page.b, colours);
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
