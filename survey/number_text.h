#pragma once

#include <string>

namespace tarvex::survey
{

/// A value with that many decimals and a point, whatever the locale; no zero has a minus.
std::string Decimals(double value, int decimals);

} // namespace tarvex::survey
