#include "panel/widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace tarvex::panel
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

double LeastContrast(const QColor& colour, std::initializer_list<QColor> grounds)
{
    double least = 21;
    for (const QColor& ground : grounds)
        least = std::min(least, Contrast(colour, ground));
    return least;
}

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor Between(const QColor& from, const QColor& to, double share)
{
    const auto mixed = [share](float one, float other) {
        return static_cast<float>(one + (other - one) * share);
    };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

QColor SetOff(const QColor& wanted, std::initializer_list<QColor> grounds, double least)
{
    constexpr int kSteps = 64;
    QColor best = wanted;
    for (int step = 0; step <= kSteps; ++step) {
        for (const QColor& end : {QColor(Qt::black), QColor(Qt::white)}) {
            const QColor colour = Between(wanted, end, static_cast<double>(step) / kSteps);
            const double reached = LeastContrast(colour, grounds);
            if (reached >= least) return colour.toRgb();
            if (reached > LeastContrast(best, grounds)) best = colour;
        }
    }
    return best.toRgb();
}

} // namespace tarvex::panel
