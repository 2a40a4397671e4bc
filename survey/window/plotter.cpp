#include "survey/window/plotter.h"

#include <qcustomplot.h>

#include <algorithm>
#include <cmath>

namespace tarvex::survey
{

namespace
{
/// Distinct also for eyes that see few colours; dark paper takes the lighter ones.
constexpr std::array<QRgb, 4> kOnLight{0xFF0072B2, 0xFFD55E00, 0xFF007A5A, 0xFF9A3F7A};
constexpr std::array<QRgb, 4> kOnDark{0xFF56B4E9, 0xFFE69F00, 0xFF3DD6A8, 0xFFE59CC7};
constexpr std::array<Qt::PenStyle, 4> kDashes{Qt::SolidLine, Qt::DashLine, Qt::DotLine,
                                              Qt::DashDotLine};
constexpr double kMetre = 10; // tenths

QPen PenOf(const Curve& curve, std::size_t number, const PlotColours& colours)
{
    QColor colour(colours.Dark() ? kOnDark[number % 4] : kOnLight[number % 4]);
    if (!curve.strong) colour.setAlphaF(0.4F);
    return {colour, curve.strong ? 1.8 : 1.0, kDashes[number % 4]};
}

void Paint(QCPAxis& axis, const PlotColours& colours)
{
    for (auto pen : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen})
        (axis.*pen)(QPen(colours.ink));
    axis.setLabelColor(colours.ink);
    axis.setTickLabelColor(colours.ink);
    axis.grid()->setPen(QPen(colours.grid, 0));
    axis.grid()->setZeroLinePen(QPen(colours.ink, 0));
}

/// Where a half goes: its legend in one row of the layout, its rectangle in the next.
struct Place {
    int row;
    int column;
};

QCPAxisRect& AddRect(QCustomPlot& plot, const Place& place, const PlotHalf& half,
                     const PlotColours& colours)
{
    auto* const rect = new QCPAxisRect(&plot);
    plot.plotLayout()->addElement(place.row + 1, place.column, rect);
    auto* const values = rect->axis(QCPAxis::atBottom);
    auto* const depth = rect->axis(QCPAxis::atLeft);
    depth->setRangeReversed(true);
    depth->setLabel(QStringLiteral("Depth, m"));
    values->setLabel(QString::fromStdString(half.title));
    values->ticker()->setTickCount(4);
    for (auto* const axis : rect->axes())
        Paint(*axis, colours);
    return *rect;
}

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
    graph.setName(QStringLiteral("out: %1").arg(QString::fromStdString(curve.name)));
    graph.setLineStyle(QCPGraph::lsNone);
    graph.setPen(QPen(colours.Dark() ? QColor(255, 130, 130) : QColor(190, 0, 0), 1.5));
    graph.setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCrossCircle, 9));
}

/// Lines, so that the axes make room for them.
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

void AddLegend(QCustomPlot& plot, const Place& place, const std::vector<QCPGraph*>& graphs,
               const PlotColours& colours)
{
    auto* const legend = new QCPLegend;
    plot.plotLayout()->addElement(place.row, place.column, legend);
    plot.plotLayout()->setRowStretchFactor(place.row, 0.001); // as low as its text
    legend->setLayer(QStringLiteral("legend"));
    legend->setTextColor(colours.ink);
    legend->setBrush(Qt::NoBrush);
    legend->setBorderPen(Qt::NoPen);
    legend->setMargins(QMargins(2, 2, 2, 2));
    legend->setRowSpacing(0);
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setWrap(2);
    auto font = plot.font();
    const QFontInfo size(font); // a font may count in points or in pixels
    font.setPixelSize(std::max(1, size.pixelSize() * 85 / 100));
    legend->setFont(font);
    for (auto* const graph : graphs)
        graph->addToLegend(legend);
}

void DrawHalf(QCustomPlot& plot, const Place& place, const PlotHalf& half,
              const PlotColours& colours)
{
    constexpr std::size_t kMostInLegend = 8;
    auto& rect = AddRect(plot, place, half, colours);
    std::vector<QCPGraph*> named;
    for (std::size_t i = 0; i < half.curves.size(); ++i) {
        auto& graph = AddGraph(plot, rect, half.curves[i].points);
        graph.setName(QString::fromStdString(half.curves[i].name));
        graph.setPen(PenOf(half.curves[i], i, colours));
        named.push_back(&graph);
        AddOutliers(plot, rect, half.curves[i], colours);
    }
    AddLimits(plot, rect, half, colours);
    if (named.size() > kMostInLegend) named.erase(named.begin(), named.end() - kMostInLegend);
    if (!named.empty()) AddLegend(plot, place, named, colours);
}
} // namespace

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
