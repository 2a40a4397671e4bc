#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

/// Without the blanks, tabs and NUL bytes at both ends.
std::string_view Trimmed(std::string_view text);

/// The parts between the separators; one more than there are separators.
std::vector<std::string_view> Split(std::string_view text, char separator);

/// Letters A to Z made small; nothing else changes.
std::string Lower(std::string_view text);

/// Characters of a UTF-8 text.
std::size_t Width(std::string_view utf8);

} // namespace tarvex::survey
