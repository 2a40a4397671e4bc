#include "unit/tube.h"

#include <cmath>
#include <numbers>

namespace tarvex::unit
{

namespace
{
double Draw(std::mt19937& random, double low, double high)
{
    return low + (high - low) * static_cast<double>(random() % 10'000U) / 10'000.0;
}
} // namespace

Tube::Tube(std::mt19937& random)
    : leanA_(Draw(random, -0.03, 0.03)),
      leanB_(Draw(random, -0.03, 0.03)),
      wave_(Draw(random, 18.0, 45.0)),
      phase_(Draw(random, 0.0, 6.0)),
      shearAt_(Draw(random, 0.3, 0.8)),
      shear_(Draw(random, 0.008, 0.02))
{
}

Lean Tube::At(double depth, double length) const
{
    const double turn = 2.0 * std::numbers::pi * depth / wave_ + phase_;
    const double fromShear = (depth - shearAt_ * length) / 2.0;
    const double shear = shear_ * std::exp(-fromShear * fromShear);
    return {leanA_ + 0.006 * std::sin(turn) + shear,
            leanB_ + 0.005 * std::cos(0.7 * turn) + 0.3 * shear};
}

} // namespace tarvex::unit
