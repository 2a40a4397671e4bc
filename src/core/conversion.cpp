#include "core/conversion.h"

#include "core/failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tarvex
{

namespace
{

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// The plain digits that NumericValue reads, e.g. "12.5": what std::from_chars is then given holds
/// neither sign nor exponent.
std::string_view LeadingDecimal(std::string_view text)
{
    std::size_t end = 0;
    bool pointSeen = false;
    while (end < text.size() && (IsDigit(text[end]) || (text[end] == '.' && !pointSeen))) {
        pointSeen = pointSeen || text[end] == '.';
        ++end;
    }
    return text.substr(0, end);
}

/// `value` with `decimals` digits after the point. The buffer holds every double.
std::string FixedDecimal(double value, int decimals)
{
    std::array<char, 400> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed, decimals);
    return {buffer.data(), written.ptr};
}

std::string PaddedDigits(double value, std::size_t wholeDigits, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    const double rounded = std::round(std::abs(value) * scale) / scale;
    std::string digits = FixedDecimal(rounded, decimals);
    const std::size_t width =
        wholeDigits + (decimals > 0 ? 1U + static_cast<std::size_t>(decimals) : 0U);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return value < 0 ? '-' + digits : digits;
}

int HexDigit(char character)
{
    if (IsDigit(character)) return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    throw RunTimeFailure("Type mismatch");
}

} // namespace

double NumericValue(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);

    const std::string_view decimal = LeadingDecimal(text);
    double magnitude = 0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), magnitude,
                    std::chars_format::fixed);
    return negative && magnitude != 0 ? -magnitude : magnitude;
}

std::string TwoDigits(double value)
{
    return PaddedDigits(value, 2, 0);
}

std::string FiveDigits(double value)
{
    return PaddedDigits(value, 5, 0);
}

std::string OneDecimal(double value)
{
    return PaddedDigits(value, 3, 1);
}

std::string PlainNumber(double value)
{
    std::array<char, 400> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                       value == 0 ? 0 : value, // no "-0"
                                       std::chars_format::fixed);
    return {buffer.data(), written.ptr};
}

char HexPair(std::string_view digits)
{
    if (digits.size() < 2) throw RunTimeFailure("Type mismatch");
    return static_cast<char>(HexDigit(digits[0]) * 16 + HexDigit(digits[1]));
}

std::string TwoHexDigits(int index)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    return {digits[static_cast<std::size_t>(index / 16)],
            digits[static_cast<std::size_t>(index % 16)]};
}

std::string_view Middle(std::string_view text, std::size_t first, std::size_t count)
{
    return first - 1 < text.size() ? text.substr(first - 1, count) : std::string_view();
}

std::string_view Right(std::string_view text, std::size_t count)
{
    return text.substr(text.size() - std::min(count, text.size()));
}

} // namespace tarvex
