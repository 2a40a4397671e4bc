#include "survey/window/plot_view.h"

#include "survey/window/plotter.h"

#include <algorithm>

namespace tarvex::survey
{

std::vector<QCPAxis*> PlotView::Axes() const
{
    std::vector<QCPAxis*> axes;
    for (auto* const rect : axisRects())
        for (const auto type : {QCPAxis::atLeft, QCPAxis::atBottom})
            axes.push_back(rect->axis(type));
    return axes;
}

PlotView::View PlotView::Shown() const
{
    View view;
    for (const auto* const axis : Axes())
        view.push_back(axis->range());
    return view;
}

PlotView::View PlotView::Zoomed() const
{
    auto view = Shown();
    return view == whole_ ? View() : view;
}

void PlotView::ReturnTo(const View& view)
{
    const auto axes = Axes();
    for (std::size_t i = 0; i < std::min(view.size(), axes.size()); ++i)
        axes[i]->setRange(view[i]);
    DrawSoon();
}

void PlotView::ShowAll()
{
    FitAxes(*this);
    replot(rpQueuedReplot);
}

} // namespace tarvex::survey
