#include "survey/window/kept_view.h"

#include <QScrollBar>
#include <QTableView>

namespace tarvex::survey
{

KeptView::KeptView(const PlotView& plot, const QTableView& table)
    : plot_(plot.Zoomed()),
      row_(table.currentIndex().row()),
      column_(table.currentIndex().column()),
      down_(table.verticalScrollBar()->value()),
      across_(table.horizontalScrollBar()->value())
{
}

void KeptView::PutBack(PlotView& plot, QTableView& table) const
{
    plot.ReturnTo(plot_);
    if (const auto place = table.model()->index(row_, column_); place.isValid())
        table.setCurrentIndex(place);
    table.verticalScrollBar()->setValue(down_);
    table.horizontalScrollBar()->setValue(across_);
}

} // namespace tarvex::survey
