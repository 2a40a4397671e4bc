#pragma once

namespace tarvex::survey
{

/// What a probe's counts mean; the reports do not hold it.
struct Probe {
    double constant = 0; ///< counts of a half difference for a sine of 1
    double base = 0;     ///< distance of its wheels in metres
};

/// Millimetres across the tube that a half difference over one base length is.
double Millimetres(double counts, const Probe& probe);

} // namespace tarvex::survey
