#pragma once

#include "link/device_link.h"

#include <string>
#include <string_view>

namespace tarvex
{

/// The characters of one reply to a read frame: 16 bytes, each as two hexadecimal digits and a
/// separator, and two characters more.
inline constexpr int kPageReplyLength = 50;

/// The position (from 1) in a reply at which byte `index` (from 0) of the page begins.
constexpr std::size_t PositionOfByte(int index)
{
    return 1 + 3 * static_cast<std::size_t>(index);
}

/// Makes the block of that number, rounded half away from zero, the one to read. A number below 1,
/// or one that rounds to above 30, leaves the block that was read last.
void SetReadBlock(WorkingState& state, double blockNumber);

/// The five digits of the page that the address pieces name.
std::string ReadAddress(const WorkingState& state);

/// Reads the page that the address pieces name, after a wake answered "!": shows its address, sends
/// "a", the address and CR, and waits for the reply without limit.
void ReadPage(DeviceLink& link, TextBox& addressShown, const WorkingState& state);

/// `field` becomes the text of the page's first `byteCount` bytes. A byte whose two digits are not
/// hexadecimal adds nothing; nothing is trimmed or checked.
void DecodePageText(std::string_view reply, int byteCount, std::string& field);

/// `field` becomes the character of the page's first byte, and stays when that is not hexadecimal.
void DecodePageCharacter(std::string_view reply, std::string& field);

} // namespace tarvex
