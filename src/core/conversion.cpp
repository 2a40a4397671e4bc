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

/// The digits of a whole number from 0. The buffer holds every double.
std::string WholeDigits(double value)
{
    constexpr double everyWhole = 9007199254740992; // 2^53
    std::array<char, 310> buffer;
    char* const end = buffer.data() + buffer.size();
    const auto written =
        value < everyWhole
            ? std::to_chars(buffer.data(), end, static_cast<std::int64_t>(value)) // the quicker
            : std::to_chars(buffer.data(), end, value, std::chars_format::fixed, 0);
    return {buffer.data(), written.ptr};
}

/// With at least `wholeDigits` digits before the point and `decimals`, 0 or 1, after it.
std::string PaddedDigits(double value, std::size_t wholeDigits, std::size_t decimals)
{
    const double scale = decimals == 0 ? 1 : 10;
    std::string digits = WholeDigits(std::round(std::abs(value) * scale));
    const std::size_t least = wholeDigits + decimals;
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    if (decimals > 0) digits.insert(digits.size() - decimals, 1, '.');
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
