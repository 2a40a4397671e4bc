#include "survey/model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tarvex::survey
{

std::string Decimals(double value, int decimals)
{
    std::array<char, 400> digits{}; // the longest double has 309 digits before its point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    std::string text(digits.data(), end);
    if (text.starts_with('-') && text.find_first_of("123456789") == std::string::npos)
        text.erase(0, 1);
    return text;
}

std::optional<int> WholeNumber(std::string_view digits)
{
    constexpr std::size_t kMostDigits = 9;
    if (digits.empty() || digits.size() > kMostDigits ||
        !std::ranges::all_of(digits, [](char byte) { return byte >= '0' && byte <= '9'; }))
        return std::nullopt;
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

std::optional<int> TenthsOf(std::string_view metres)
{
    constexpr int kMostMetres = 999;
    const auto sign = metres.find_first_of(".,");
    if (sign == std::string_view::npos || metres.size() != sign + 2) return std::nullopt;
    const auto whole = WholeNumber(metres.substr(0, sign));
    const auto tenth = WholeNumber(metres.substr(sign + 1));
    if (!whole || !tenth || *whole > kMostMetres) return std::nullopt;
    return *whole * 10 + *tenth;
}

} // namespace tarvex::survey
