#include "survey/window/legible_style.h"

#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>

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

void LegibleStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QTipLabel")) static_cast<QLabel*>(widget)->setTextFormat(Qt::PlainText);
}

void LegibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const
{
    if (element != PE_FrameFocusRect)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    const auto role =
        (option->state & State_Selected) != 0 ? QPalette::HighlightedText : QPalette::Highlight;
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(
        QPen(option->palette.color(role), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->drawRect(option->rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

QSize LegibleStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& content, const QWidget* widget) const
{
    constexpr int kButtonHeight = 34;
    const auto size = QProxyStyle::sizeFromContents(type, option, content, widget);
    return type == CT_PushButton ? size.expandedTo(QSize(0, kButtonHeight)) : size;
}

} // namespace tarvex::survey
