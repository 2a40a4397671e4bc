#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_half.h"

#include <vector>

class QCPGraph;
class QCustomPlot;

namespace tarvex::survey
{

/// Puts a legend of these graphs over the half of that place.
void AddLegend(QCustomPlot& plot, const Place& place, const std::vector<QCPGraph*>& graphs,
               const PlotColours& colours);

/// Where the width of the plot is too little for its legends, they name the readouts by their
/// numbers alone, and the graphs below each other. Gives the height of the highest, in pixels.
int FitLegends(QCustomPlot& plot);

} // namespace tarvex::survey
