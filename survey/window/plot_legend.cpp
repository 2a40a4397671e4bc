#include "survey/window/plot_legend.h"

#include <qcustomplot.h>

#include <algorithm>
#include <array>

namespace tarvex::survey
{

namespace
{
/// How a legend names its graphs, and beside how many others.
struct Wording {
    bool whole;
    int columns;
};

/// From the one that is read best to the one that takes the least room.
constexpr std::array<Wording, 3> kWordings{{{true, 2}, {false, 2}, {false, 1}}};

/// The line of a graph in a legend, which keeps the whole name while it shows a shorter one.
class LegendLine : public QCPPlottableLegendItem
{
public:
    LegendLine(QCPLegend& legend, QCPGraph& graph)
        : QCPPlottableLegendItem(&legend, &graph), whole_(graph.name()), short_(whole_)
    {
        short_.remove(QStringLiteral("readout "));
    }

    void Name(bool whole) { plottable()->setName(whole ? whole_ : short_); }

private:
    QString whole_;
    QString short_;
};

void Arrange(QCPLegend& legend, const Wording& wording)
{
    for (int i = 0; i < legend.itemCount(); ++i)
        static_cast<LegendLine*>(legend.item(i))->Name(wording.whole);
    if (legend.wrap() == wording.columns) return;
    legend.setWrap(wording.columns);
    legend.setFillOrder(QCPLegend::foColumnsFirst, true);
}
} // namespace

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
    legend->setColumnSpacing(4);
    legend->setIconTextPadding(4);
    legend->setIconSize(28, 18); // every dash once
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setWrap(kWordings.front().columns);
    auto font = plot.font();
    const QFontInfo size(font); // a font may count in points or in pixels
    font.setPixelSize(std::max(1, size.pixelSize() * 85 / 100));
    legend->setFont(font);
    for (auto* const graph : graphs)
        legend->addItem(new LegendLine(*legend, *graph));
}

int FitLegends(QCustomPlot& plot)
{
    auto& layout = *plot.plotLayout();
    const int columns = std::max(1, layout.columnCount());
    const int width = (plot.width() - layout.columnSpacing() * (columns - 1)) / columns;
    int highest = 0;
    for (auto* const element : layout.elements(false)) {
        auto* const legend = qobject_cast<QCPLegend*>(element);
        if (legend == nullptr) continue;
        const QCPLayoutElement& needs = *legend;
        for (const auto& wording : kWordings) {
            Arrange(*legend, wording);
            if (needs.minimumOuterSizeHint().width() <= width) break;
        }
        highest = std::max(highest, needs.minimumOuterSizeHint().height());
    }
    return highest;
}

} // namespace tarvex::survey
