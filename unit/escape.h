#pragma once

#include <string>
#include <string_view>

namespace tarvex::unit
{

/// Bytes as text that a person can read: CR, LF and backslash as \r, \n and \\, any other byte that
/// is not a printable ASCII character as \x and two capital hexadecimal digits.
std::string Escape(std::string_view bytes);

/// The bytes that an escaped text stands for; a backslash followed by anything else throws
/// std::invalid_argument.
std::string Unescape(std::string_view text);

} // namespace tarvex::unit
