#include "survey/window/plot_graphs.h"

#include "survey/window/plot_pen.h"
#include "survey/window/window_text.h"

#include <qcustomplot.h>

#include <algorithm>

namespace tarvex::survey
{

namespace
{
constexpr double kMetre = 10; // tenths

QVector<double> Depths(const Series& points)
{
    QVector<double> depths;
    for (const auto& point : points)
        depths.push_back(point.depth / kMetre);
    return depths;
}

QVector<double> Values(const Series& points)
{
    QVector<double> values;
    for (const auto& point : points)
        values.push_back(point.value);
    return values;
}

/// A graph from depth to value, so that its points keep the order of the tube.
QCPGraph& AddGraph(QCustomPlot& plot, QCPAxisRect& rect, const Series& points)
{
    auto* const graph = plot.addGraph(rect.axis(QCPAxis::atLeft), rect.axis(QCPAxis::atBottom));
    graph->setData(Depths(points), Values(points), true);
    return *graph;
}

void AddOutliers(QCustomPlot& plot, QCPAxisRect& rect, const Curve& curve,
                 const PlotColours& colours)
{
    Series marked;
    for (const auto& point : curve.points)
        if (std::ranges::find(curve.marked, point.depth) != curve.marked.end())
            marked.push_back(point);
    if (marked.empty()) return;
    auto& graph = AddGraph(plot, rect, marked);
    graph.setName(QStringLiteral("out: %1").arg(Text(curve.name)));
    graph.setLineStyle(QCPGraph::lsNone);
    graph.setPen(QPen(colours.Dark() ? QColor(255, 130, 130) : QColor(190, 0, 0), 1.5));
    graph.setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCrossCircle, 9));
}
} // namespace

QCPGraph& AddCurve(QCustomPlot& plot, QCPAxisRect& rect, const Curve& curve, std::size_t number,
                   const PlotColours& colours)
{
    auto& graph = AddGraph(plot, rect, curve.points);
    graph.setName(Text(curve.name));
    graph.setPen(PenOf(curve, number, colours));
    AddOutliers(plot, rect, curve, colours);
    return graph;
}

void AddLimits(QCustomPlot& plot, QCPAxisRect& rect, const PlotHalf& half,
               const PlotColours& colours)
{
    if (!half.limits || half.curves.empty() || half.curves.front().points.empty()) return;
    const auto& points = half.curves.back().points;
    for (const double limit : {half.limits->first, half.limits->second}) {
        auto& graph =
            AddGraph(plot, rect, {{points.front().depth, limit}, {points.back().depth, limit}});
        graph.setName(QStringLiteral("limit"));
        graph.setPen(QPen(colours.ink, 1, Qt::DotLine));
    }
}

} // namespace tarvex::survey
