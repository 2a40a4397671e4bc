#include "panel/rendered.h"

#include <algorithm>
#include <cmath>
#include <map>

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

} // namespace tarvex::tests
