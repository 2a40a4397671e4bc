#pragma once

#include <string>
#include <string_view>

namespace tarvex::utf8
{

/// Replaces bytes that make no character.
inline constexpr char32_t kInvalid = 0xFFFD;

/// Takes one character off the front of `text`, which is not empty. Malformed bytes, surrogates and
/// numbers beyond Unicode give kInvalid; at least one byte is taken.
char32_t TakeCharacter(std::u8string_view& text);

/// Adds one character to `text`; kInvalid for one that has no UTF-8.
void Append(std::u8string& text, char32_t character);

} // namespace tarvex::utf8
