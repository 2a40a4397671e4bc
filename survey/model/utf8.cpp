#include "survey/model/utf8.h"

namespace tarvex::survey
{

void Append(std::string& text, char32_t character)
{
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
        tail(0);
    } else {
        text += static_cast<char>(0xE0U | (character >> 12U));
        tail(6);
        tail(0);
    }
}

std::size_t CharacterLength(std::string_view text)
{
    const auto at = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const auto follows = [&](std::size_t index, unsigned low = 0x80, unsigned high = 0xBF) {
        return at(index) >= low && at(index) <= high;
    };
    const unsigned first = at(0);
    // C2 80 to C2 9F are control characters again.
    if (first >= 0xC2 && first <= 0xDF) return follows(1, first == 0xC2 ? 0xA0 : 0x80) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = first == 0xED ? 0x9F : 0xBF;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const unsigned low = first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

} // namespace tarvex::survey
