#include "survey/number_text.h"

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

} // namespace tarvex::survey
