#include "download/sample_word.h"

#include "core/conversion.h"
#include "core/failure.h"

#include <array>

namespace tarvex
{

namespace
{

constexpr int kPositive = 8;

int DigitValue(char character)
{
    const int code = static_cast<unsigned char>(character);
    return code <= '9' ? code - '0' : code - 'A' + 10;
}

} // namespace

void DecodeSampleWord(std::string_view digits, std::string& result)
{
    result.clear();
    std::array<int, 4> values{};
    for (std::size_t place = 0; place < values.size(); ++place) {
        if (place >= digits.size()) throw RunTimeFailure("Invalid procedure call or argument");
        values[place] = DigitValue(digits[place]);
    }

    const bool positive = (values[0] & kPositive) != 0;
    if (positive) values[0] -= kPositive;
    const int value = values[0] * 4096 + values[1] * 256 + values[2] * 16 + values[3];
    result = (positive ? '+' : '-') + FiveDigits(value);
}

} // namespace tarvex
