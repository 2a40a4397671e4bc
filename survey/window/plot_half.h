#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_page.h"

class QCustomPlot;

namespace tarvex::survey
{

/// Where a half goes: its legend in one row of the layout, its rectangle in the next.
struct Place {
    int row;
    int column;
};

/// Draws one channel there: its axes, its curves with their outliers, its limits and its legend.
void DrawHalf(QCustomPlot& plot, const Place& place, const PlotHalf& half,
              const PlotColours& colours);

} // namespace tarvex::survey
