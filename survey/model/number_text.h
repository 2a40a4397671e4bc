#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex::survey
{

/// A value with that many decimals and a point, whatever the locale; no zero has a minus.
std::string Decimals(double value, int decimals);

/// Tenths of a metre from metres with one decimal, point or comma: 125 from "012.5". Nothing for
/// any other text, nor for more than 999.9 m.
std::optional<int> TenthsOf(std::string_view metres);

/// A whole number of decimal digits alone, of at most nine.
std::optional<int> WholeNumber(std::string_view digits);

} // namespace tarvex::survey
