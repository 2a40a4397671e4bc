#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvex::survey
{

/// Length of the well-formed character of several bytes that a text begins with; 0 if there is
/// none.
std::size_t CharacterLength(std::string_view text);

/// Adds a character below 10000 hexadecimal to a text.
void Append(std::string& text, char32_t character);

} // namespace tarvex::survey
