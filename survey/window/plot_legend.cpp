#include "survey/window/plot_legend.h"

#include <qcustomplot.h>

#include <algorithm>

namespace tarvex::survey
{

void AddLegend(QCustomPlot& plot, const Place& place, const std::vector<QCPGraph*>& graphs,
               const PlotColours& colours)
{
    auto* const legend = new QCPLegend;
    plot.plotLayout()->addElement(place.row, place.column, legend);
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

} // namespace tarvex::survey
