#include "core/code_page.h"

#include "core/path_text.h"
#include "core/utf8.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace tarvex::code_page
{

namespace
{

/// The characters of the codes 0x80 to 0x9F; all others are Unicode's own numbers.
constexpr std::array<char32_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kFirstSpecial = 0x80;
constexpr char32_t kFirstLatin = 0xA0;

unsigned char Code(char byte)
{
    return static_cast<unsigned char>(byte);
}

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

const char32_t* FindSpecial(char32_t character)
{
    return std::find(kUpperControls.begin(), kUpperControls.end(), character);
}

} // namespace

char32_t ToUnicode(char byte)
{
    const char32_t code = Code(byte);
    return code >= kFirstSpecial && code < kFirstLatin ? kUpperControls[code - kFirstSpecial]
                                                       : code;
}

bool Holds(char32_t character)
{
    return character < kFirstSpecial || (character >= kFirstLatin && character <= 0xFF) ||
           FindSpecial(character) != kUpperControls.end();
}

char FromUnicode(char32_t character)
{
    if (!Holds(character)) return '?';
    if (character < kFirstSpecial || (character >= kFirstLatin && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    return static_cast<char>(kFirstSpecial + static_cast<char32_t>(std::distance(
                                                 kUpperControls.begin(), FindSpecial(character))));
}

char Capital(char byte)
{
    const unsigned char code = Code(byte);
    if ((code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7)) {
        return static_cast<char>(code - 0x20);
    }
    switch (code) {
    case 0x9A: // š
    case 0x9C: // œ
    case 0x9E: // ž
        return static_cast<char>(code - 0x10);
    case 0xFF: // ÿ
        return static_cast<char>(0x9F);
    default:
        return byte;
    }
}

std::string Capitals(std::string_view text)
{
    std::string capitals(text);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(), Capital);
    return capitals;
}

std::u8string ToUtf8(std::string_view text)
{
    std::u8string bytes;
    for (const char byte : text)
        utf8::Append(bytes, ToUnicode(byte));
    return bytes;
}

std::string FromUtf8(std::u8string_view text)
{
    std::string bytes;
    while (!text.empty())
        bytes += FromUnicode(utf8::TakeCharacter(text));
    return bytes;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string utf16;
    for (const char byte : text)
        utf16 += static_cast<char16_t>(ToUnicode(byte));
    return utf16;
}

std::string FromUtf16(std::u16string_view text)
{
    std::string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool pair = IsHighSurrogate(text[index]) && index + 1 < text.size() &&
                          IsLowSurrogate(text[index + 1]);
        bytes += pair ? '?' : FromUnicode(text[index]);
        if (pair) ++index;
    }
    return bytes;
}

std::string Shown(const std::filesystem::path& path)
{
    return FromUtf16(path_text::Unicode(path));
}

} // namespace tarvex::code_page
