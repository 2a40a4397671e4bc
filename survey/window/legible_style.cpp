#include "survey/window/legible_style.h"

#include <QPalette>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvex::survey
{

namespace
{
double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour)
{
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
           0.0722 * Linear(colour.blueF());
}

/// The ground of a selection, made lighter or darker, away from what is around it.
QColor Apart(QColor ground, const QColor& around)
{
    constexpr double kLeast = 3;
    const bool lighter = around.lightness() < 128;
    for (int step = 0; step < 20 && ContrastOf(ground, around) < kLeast; ++step) {
        const int lightness = ground.lightness() + (lighter ? 10 : -10);
        ground.setHsl(ground.hslHue(), ground.hslSaturation(), qBound(0, lightness, 255));
    }
    return ground;
}

QColor TextOn(const QColor& ground, const QColor& wanted)
{
    constexpr double kLeast = 4.5;
    if (ContrastOf(wanted, ground) >= kLeast) return wanted;
    const bool white = ContrastOf(Qt::white, ground) >= ContrastOf(Qt::black, ground);
    return white ? Qt::white : Qt::black;
}
} // namespace

double ContrastOf(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

void LegibleStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const auto ground =
            Apart(palette.color(group, QPalette::Highlight), palette.color(group, QPalette::Base));
        palette.setColor(group, QPalette::Highlight, ground);
        palette.setColor(group, QPalette::HighlightedText,
                         TextOn(ground, palette.color(group, QPalette::HighlightedText)));
    }
}

} // namespace tarvex::survey
