#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_page.h"

#include <cstddef>

class QCPAxisRect;
class QCPGraph;
class QCustomPlot;

namespace tarvex::survey
{

/// Adds a curve of a survey, which comes `number`th in its half, with its outliers.
QCPGraph& AddCurve(QCustomPlot& plot, QCPAxisRect& rect, const Curve& curve, std::size_t number,
                   const PlotColours& colours);

/// Adds the limits of a half, if it has any: as lines, so that the axes make room for them.
void AddLimits(QCustomPlot& plot, QCPAxisRect& rect, const PlotHalf& half,
               const PlotColours& colours);

} // namespace tarvex::survey
