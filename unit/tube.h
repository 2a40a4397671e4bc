#pragma once

#include <random>

namespace tarvex::unit
{

/// Lean of the tube at one depth, as the sine of its angle in the two directions of the first
/// guides.
struct Lean {
    double a;
    double b;
};

/// The shape of one tube.
class Tube
{
public:
    /// Draws a shape: the same for the same state of `random`.
    explicit Tube(std::mt19937& random);

    /// Lean at a depth in metres of a tube of the length given.
    Lean At(double depth, double length) const;

private:
    double leanA_;
    double leanB_;
    double wave_;
    double phase_;
    double shearAt_;
    double shear_;
};

} // namespace tarvex::unit
