#pragma once

#include "unit/memory.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// Characters of a page on the line: sixteen groups of two digits and a blank, then CR and LF.
inline constexpr std::size_t kPageCharacters = 3 * kPageBytes + 2;

/// The value of an address of five digits 0-9, A-F; nothing for any other text.
std::optional<std::uint32_t> AddressOf(std::string_view digits);

/// Two capital hexadecimal digits.
std::string HexPair(std::uint8_t byte);

/// A page as it goes over the line, kPageCharacters long.
std::string PageText(const Page& page);

} // namespace tarvex::unit
