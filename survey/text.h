#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

/// How the bytes of a report are to be understood.
enum class Encoding { Windows1252, Utf8 };

/// Text for people, in UTF-8. Bytes that would move a terminal's cursor, and those that are no
/// text, become the replacement character.
std::string Readable(std::string_view bytes, Encoding encoding = Encoding::Windows1252);

/// Without the blanks, tabs and NUL bytes at both ends.
std::string_view Trimmed(std::string_view text);

/// The parts between the separators; one more than there are separators.
std::vector<std::string_view> Split(std::string_view text, char separator);

/// Letters A to Z made small; nothing else changes.
std::string Lower(std::string_view text);

/// Tenths of a metre from metres with one decimal, point or comma: 125 from "012.5". Nothing for
/// any other text, nor for more than 999.9 m.
std::optional<int> TenthsOf(std::string_view metres);

/// A whole number of decimal digits alone, of at most nine.
std::optional<int> WholeNumber(std::string_view digits);

/// Characters of a UTF-8 text.
std::size_t Width(std::string_view utf8);

} // namespace tarvex::survey
