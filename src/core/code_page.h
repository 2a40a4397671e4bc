#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex::code_page
{

/// The program's text is Windows-1252, one byte a character; all 256 values survive the way to
/// Unicode and back (the five codes without a character become the control characters of the same
/// number).

/// The Unicode character of one byte.
char32_t ToUnicode(char byte);

/// The byte of a Unicode character; "?" for one outside the code page.
char FromUnicode(char32_t character);

/// True when the character has a byte of its own.
bool Holds(char32_t character);

/// The capital of one letter inside the code page: à to À, ÿ to Ÿ; ß and µ stay.
char Capital(char byte);

/// Every letter of `text` as its capital.
std::string Capitals(std::string_view text);

/// The text in UTF-8.
std::u8string ToUtf8(std::string_view text);

/// Text from UTF-8, with "?" for what the code page does not hold and for malformed bytes.
std::string FromUtf8(std::u8string_view text);

/// The text in UTF-16, a unit a byte.
std::u16string ToUtf16(std::string_view text);

/// Text from UTF-16, one byte a character: "?" for one outside the code page, also for one of two
/// units.
std::string FromUtf16(std::u16string_view text);

/// A path as the panel shows it.
std::string Shown(const std::filesystem::path& path);

} // namespace tarvex::code_page
