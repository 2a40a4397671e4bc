#include "survey/window/plot_half.h"

#include "survey/window/plot_graphs.h"
#include "survey/window/plot_legend.h"
#include "survey/window/window_text.h"

#include <qcustomplot.h>

#include <vector>

namespace tarvex::survey
{

namespace
{
void Paint(QCPAxis& axis, const PlotColours& colours)
{
    for (auto pen : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen})
        (axis.*pen)(QPen(colours.ink));
    axis.setLabelColor(colours.ink);
    axis.setTickLabelColor(colours.ink);
    axis.grid()->setPen(QPen(colours.grid, 0));
    axis.grid()->setZeroLinePen(QPen(colours.ink, 0));
}

QCPAxisRect& AddRect(QCustomPlot& plot, const Place& place, const PlotHalf& half,
                     const PlotColours& colours)
{
    auto* const rect = new QCPAxisRect(&plot);
    plot.plotLayout()->addElement(place.row + 1, place.column, rect);
    plot.plotLayout()->setRowStretchFactor(place.row, 0.001); // a legend is as low as its text
    auto* const values = rect->axis(QCPAxis::atBottom);
    auto* const depth = rect->axis(QCPAxis::atLeft);
    depth->setRangeReversed(true);
    depth->setLabel(QStringLiteral("Depth, m"));
    values->setLabel(Text(half.title));
    values->ticker()->setTickCount(4);
    for (auto* const axis : rect->axes())
        Paint(*axis, colours);
    return *rect;
}
} // namespace

void DrawHalf(QCustomPlot& plot, const Place& place, const PlotHalf& half,
              const PlotColours& colours)
{
    constexpr std::size_t kMostInLegend = 8;
    auto& rect = AddRect(plot, place, half, colours);
    std::vector<QCPGraph*> named;
    for (std::size_t i = 0; i < half.curves.size(); ++i)
        named.push_back(&AddCurve(plot, rect, half.curves[i], i, colours));
    AddLimits(plot, rect, half, colours);
    if (named.size() > kMostInLegend) named.erase(named.begin(), named.end() - kMostInLegend);
    if (!named.empty()) AddLegend(plot, place, named, colours);
}

} // namespace tarvex::survey
