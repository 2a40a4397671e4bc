#pragma once

#include <string>
#include <string_view>

namespace tarvex
{

/// Turns a reading into its sign and its magnitude in at least five digits. `digits` are the word's
/// four hexadecimal digits in capitals, the most significant first; what follows them is
/// ignored. Bit 15 set means positive, the other bits are the magnitude, and both zeros are kept
/// apart.
///
/// No character is refused: every code up to that of "9" counts from "0", every other from "A"
/// minus 10, so that a garbled page shows in the report instead of being mended. Fewer than four
/// characters fail; `result` is then empty.
void DecodeSampleWord(std::string_view digits, std::string& result);

} // namespace tarvex
