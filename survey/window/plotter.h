#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_page.h"

class QCustomPlot;

namespace tarvex::survey
{

/// Draws pages into a plot, each as two axis rectangles side by side with depth downward, so many
/// pages in a row; what it showed before is gone. Lines differ by colour and dash; outliers
/// have a cross in a ring.
void Draw(QCustomPlot& plot, const std::vector<PlotPage>& pages, const PlotColours& colours,
          int pagesInARow = 4);

/// Every axis back to all of its curves.
void FitAxes(QCustomPlot& plot);

} // namespace tarvex::survey
