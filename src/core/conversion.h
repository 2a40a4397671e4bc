#pragma once

#include <string>
#include <string_view>

namespace tarvex
{

/// The number at the start of `text`: leading blanks and tabs, one optional sign, digits with at
/// most one point; reading stops at the first other character, and no digit gives 0. Never the
/// desktop's locale, no exponent, no hexadecimal.
double NumericValue(std::string_view text);

/// Pattern "00": rounded half away from zero, at least two digits, the sign first, also in "-00".
std::string TwoDigits(double value);

/// Pattern "00000": as TwoDigits, with at least five digits.
std::string FiveDigits(double value);

/// Pattern "000.0": rounded half away from zero to one decimal after a point.
std::string OneDecimal(double value);

/// The shortest decimal form, without padding and without an exponent.
std::string PlainNumber(double value);

/// The character whose code is at the start of `digits` as two of 0-9, A-F, a-f.
/// Fails when one of the two is anything else, or missing.
char HexPair(std::string_view digits);

/// `index` (0 to 255) as two capital hexadecimal digits.
std::string TwoHexDigits(int index);

/// `count` characters of `text` from position `first` (from 1): fewer where the text ends, none
/// past it.
std::string_view Middle(std::string_view text, std::size_t first, std::size_t count);

/// The last `count` characters of `text`, or all of it.
std::string_view Right(std::string_view text, std::size_t count);

} // namespace tarvex
