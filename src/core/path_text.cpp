#include "core/path_text.h"

#include "core/utf8.h"

#include <type_traits>

namespace tarvex::path_text
{

namespace
{

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf16(std::u16string& text, char32_t character)
{
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
        return;
    }
    text += static_cast<char16_t>(0xD7C0 + (character >> 10));
    text += static_cast<char16_t>(0xDC00 | (character & 0x3FF));
}

std::u16string FromBytes(std::u8string_view bytes)
{
    std::u16string text;
    while (!bytes.empty())
        AppendUtf16(text, utf8::TakeCharacter(bytes));
    return text;
}

std::u8string ToBytes(std::u16string_view text)
{
    std::u8string bytes;
    for (std::size_t index = 0; index < text.size(); ++index) {
        char32_t character = text[index];
        if (IsHighSurrogate(text[index]) && index + 1 < text.size() &&
            IsLowSurrogate(text[index + 1])) {
            ++index;
            character = 0x10000 + ((character & 0x3FF) << 10) + (text[index] & 0x3FFU);
        }
        utf8::Append(bytes, character);
    }
    return bytes;
}

constexpr bool kPathsAreBytes = std::is_same_v<std::filesystem::path::value_type, char>;

} // namespace

std::u16string Unicode(const std::filesystem::path& path)
{
    if constexpr (kPathsAreBytes) {
        const auto& bytes = path.native();
        return FromBytes(std::u8string(bytes.begin(), bytes.end()));
    } else {
        return {path.native().begin(), path.native().end()};
    }
}

std::filesystem::path FromUnicode(std::u16string_view text)
{
    if constexpr (kPathsAreBytes) {
        const std::u8string bytes = ToBytes(text);
        return std::filesystem::path::string_type(bytes.begin(), bytes.end());
    } else {
        return std::filesystem::path::string_type(text.begin(), text.end());
    }
}

std::string ForLibrary(const std::filesystem::path& path)
{
    if constexpr (kPathsAreBytes) {
        return {path.native().begin(), path.native().end()};
    } else {
        const std::u8string bytes = ToBytes(Unicode(path));
        return {bytes.begin(), bytes.end()};
    }
}

std::filesystem::path FromLibrary(std::string_view bytes)
{
    if constexpr (kPathsAreBytes) {
        return std::filesystem::path::string_type(bytes.begin(), bytes.end());
    } else {
        return FromUnicode(FromBytes(std::u8string(bytes.begin(), bytes.end())));
    }
}

bool IsUnicode(const std::filesystem::path& path)
{
    return FromUnicode(Unicode(path)).native() == path.native();
}

} // namespace tarvex::path_text
