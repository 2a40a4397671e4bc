#include "core/utf8.h"

#include <array>

namespace tarvex::utf8
{

namespace
{

bool IsCharacter(char32_t number)
{
    return number < 0xD800 || (number > 0xDFFF && number <= 0x10FFFF);
}

/// How many bytes follow a lead byte, or -1 for a byte that leads nothing.
int FollowingBytes(char8_t lead)
{
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead < 0xE0) return 1;
    if (lead >= 0xE0 && lead < 0xF0) return 2;
    if (lead >= 0xF0 && lead < 0xF5) return 3;
    return -1;
}

char8_t Continuation(char32_t bits)
{
    return static_cast<char8_t>(0x80 | (bits & 0x3F));
}

} // namespace

char32_t TakeCharacter(std::u8string_view& text)
{
    const char8_t lead = text.front();
    text.remove_prefix(1);
    const int following = FollowingBytes(lead);
    if (following <= 0) return following == 0 ? char32_t{lead} : kInvalid;

    constexpr std::array<char32_t, 4> shortest = {0, 0x80, 0x800, 0x10000};
    char32_t character = lead & (0x3FU >> following);
    for (int taken = 0; taken < following; ++taken) {
        if (text.empty() || (text.front() & 0xC0) != 0x80) return kInvalid;
        character = (character << 6) | (text.front() & 0x3FU);
        text.remove_prefix(1);
    }
    const bool wellFormed =
        character >= shortest[static_cast<std::size_t>(following)] && IsCharacter(character);
    return wellFormed ? character : kInvalid;
}

void Append(std::u8string& text, char32_t character)
{
    if (!IsCharacter(character)) character = kInvalid;
    if (character < 0x80) {
        text += static_cast<char8_t>(character);
        return;
    }
    if (character < 0x800) {
        text += static_cast<char8_t>(0xC0 | (character >> 6));
    } else {
        if (character < 0x10000) {
            text += static_cast<char8_t>(0xE0 | (character >> 12));
        } else {
            text += static_cast<char8_t>(0xF0 | (character >> 18));
            text += Continuation(character >> 12);
        }
        text += Continuation(character >> 6);
    }
    text += Continuation(character);
}

} // namespace tarvex::utf8
