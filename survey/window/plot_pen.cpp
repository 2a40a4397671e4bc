#include "survey/window/plot_pen.h"

#include <array>

namespace tarvex::survey
{

namespace
{
/// Distinct also for eyes that see few colours; dark paper takes the lighter ones.
constexpr std::array<QRgb, 4> kOnLight{0xFF0072B2, 0xFFD55E00, 0xFF007A5A, 0xFF9A3F7A};
constexpr std::array<QRgb, 4> kOnDark{0xFF56B4E9, 0xFFE69F00, 0xFF3DD6A8, 0xFFE59CC7};
constexpr std::array<Qt::PenStyle, 4> kDashes{Qt::SolidLine, Qt::DashLine, Qt::DotLine,
                                              Qt::DashDotLine};
} // namespace

/// The first sixteen curves differ.
QPen PenOf(const Curve& curve, std::size_t number, const PlotColours& colours)
{
    QColor colour(colours.Dark() ? kOnDark[number % 4] : kOnLight[number % 4]);
    if (!curve.strong) colour.setAlphaF(0.85F);
    return {colour, curve.strong ? 2.4 : 1.2, kDashes[(number + number / 4) % 4]};
}

} // namespace tarvex::survey
