#pragma once

#include "survey/window/plot_colours.h"
#include "survey/window/plot_page.h"

#include <QPen>

#include <cstddef>

namespace tarvex::survey
{

/// The pen of a curve, which comes `number`th in its half: colour and dash together distinguish it
/// from its neighbours.
QPen PenOf(const Curve& curve, std::size_t number, const PlotColours& colours);

} // namespace tarvex::survey
