#include "panel/rendered.h"

#include <QFocusFrame>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace tarvex::tests
{

namespace
{

double Luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double part = channel / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

QRgb MostOf(const std::map<QRgb, int>& counts)
{
    return std::max_element(counts.begin(), counts.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
}

constexpr int kBeside = 3; // pixels from the outermost of a border to what is clear of it

} // namespace

double SeenContrast(const QColor& one, const QColor& other)
{
    const double a = Luminance(one.rgb());
    const double b = Luminance(other.rgb());
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

Rendered::Rendered(QWidget& window) : window_(window), picture_(window.grab().toImage()) {}

QRect Rendered::Place(const QWidget& control) const
{
    return {control.mapTo(&window_, QPoint()), control.size()};
}

double Rendered::SideContrast(QPoint edge, QPoint inwards) const
{
    const QColor outside = picture_.pixelColor(edge - kBeside * inwards);
    const QColor inside = picture_.pixelColor(edge + kBeside * inwards);
    double best = 0;
    for (int depth = -1; depth <= 1; ++depth) {
        const QColor border = picture_.pixelColor(edge + depth * inwards);
        best =
            std::max(best, std::min(SeenContrast(border, outside), SeenContrast(border, inside)));
    }
    return best;
}

double Rendered::BorderContrast(const QWidget& control) const
{
    const QRect place = Place(control);
    const int aside = 6; // past a round corner, before the text
    return std::min({SideContrast({place.left(), place.top() + aside}, {1, 0}),
                     SideContrast({place.right(), place.top() + aside}, {-1, 0}),
                     SideContrast({place.left() + aside, place.top()}, {0, 1}),
                     SideContrast({place.left() + aside, place.bottom()}, {0, -1})});
}

QColor Rendered::Ground(const QWidget& control) const
{
    return picture_.pixelColor(Place(control).topLeft() + QPoint(6, kBeside));
}

double Rendered::TextContrast(const QWidget& control) const
{
    const QRect inside = Place(control).adjusted(5, 3, -5, -3).intersected(picture_.rect());
    std::map<QRgb, int> counts;
    for (int y = inside.top(); y <= inside.bottom(); ++y)
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[picture_.pixel(x, y)];
    const QColor ground(MostOf(counts));
    double best = 1;
    for (const auto& [colour, count] : counts)
        best = std::max(best, SeenContrast(QColor(colour), ground));
    return best;
}

QColor Rendered::FrameChange(const QWidget& control, const Rendered& before) const
{
    const QRect place = Place(control);
    const QRect within = place.adjusted(4, 4, -4, -4);
    const QRect around = place.adjusted(-4, -4, 4, 4).intersected(picture_.rect());
    std::map<QRgb, int> changed;
    for (int y = around.top(); y <= around.bottom(); ++y) {
        for (int x = around.left(); x <= around.right(); ++x) {
            const QRgb pixel = picture_.pixel(x, y);
            if (!within.contains(x, y) && pixel != before.picture_.pixel(x, y)) ++changed[pixel];
        }
    }
    return changed.empty() ? QColor() : QColor(MostOf(changed));
}

/// Whether something across the strip, which lies along its longer side, changes at every place.
bool Rendered::ChangesAlong(const QRect& strip, const Rendered& before) const
{
    const bool level = strip.width() > strip.height();
    const auto changes = [&](int along) {
        for (int across = 0; across < (level ? strip.height() : strip.width()); ++across) {
            const QPoint at =
                strip.topLeft() + (level ? QPoint(along, across) : QPoint(across, along));
            if (picture_.valid(at) && picture_.pixel(at) != before.picture_.pixel(at)) return true;
        }
        return false;
    };
    for (int along = 0; along < (level ? strip.width() : strip.height()); ++along)
        if (!changes(along)) return false;
    return true;
}

std::string Rendered::SidesWithoutChange(const QWidget& control, const Rendered& before) const
{
    constexpr int kDepth = 3; // of the border, from the control's edge outwards
    constexpr int kCorner = 4;
    const QRect place = Place(control);
    const QRect beside = place.adjusted(0, kCorner, 0, -kCorner);
    const QRect level = place.adjusted(kCorner, 0, -kCorner, 0);
    const std::pair<const char*, QRect> sides[] = {
        {"left ", {beside.left() - kDepth, beside.top(), kDepth, beside.height()}},
        {"top ", {level.left(), level.top() - kDepth, level.width(), kDepth}},
        {"right ", {beside.right() + 1, beside.top(), kDepth, beside.height()}},
        {"bottom ", {level.left(), level.bottom() + 1, level.width(), kDepth}}};
    std::string missing;
    for (const auto& [name, strip] : sides)
        if (!ChangesAlong(strip, before)) missing += name;
    return missing;
}

std::string SidesWithoutMark(QWidget& window, const QWidget& control)
{
    auto* mark = window.findChild<QFocusFrame*>("FocusMark");
    if (mark == nullptr || mark->widget() != &control || !mark->isVisible()) return "no mark";
    const Rendered with(window);
    mark->hide();
    const Rendered without(window);
    mark->show();
    return with.SidesWithoutChange(control, without);
}

} // namespace tarvex::tests
