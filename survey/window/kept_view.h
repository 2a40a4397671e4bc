#pragma once

#include "survey/window/plot_view.h"

class QTableView;

namespace tarvex::survey
{

/// What of the plots and the table the operator has brought into view, to be shown again after both
/// were filled anew.
class KeptView
{
public:
    /// Takes note of what is in view now.
    KeptView(const PlotView& plot, const QTableView& table);

    /// Brings it back.
    void PutBack(PlotView& plot, QTableView& table) const;

private:
    PlotView::View plot_;
    int row_;
    int column_;
    int down_;
    int across_;
};

} // namespace tarvex::survey
