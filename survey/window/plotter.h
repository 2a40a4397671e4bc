#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_page.h"

class QCustomPlot;

namespace tarvex::survey
{

/// Where the two channels of a page are.
enum class Arrangement {
    SideBySide,      ///< and the pages one after the other
    OneAboveTheOther ///< and the pages side by side
};

/// Draws pages into a plot, each as two axis rectangles with depth downward; what it showed before
/// is gone. Lines differ by colour and dash; outliers have a cross in a ring.
void Draw(QCustomPlot& plot, const std::vector<PlotPage>& pages, const PlotColours& colours,
          Arrangement arrangement = Arrangement::SideBySide);

/// Every axis back to all of its curves.
void FitAxes(QCustomPlot& plot);

} // namespace tarvex::survey
