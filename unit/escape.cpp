#include "unit/escape.h"

#include "unit/hexadecimal.h"

#include <charconv>
#include <optional>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
std::string EscapeByte(char byte)
{
    switch (byte) {
    case '\r':
        return "\\r";
    case '\n':
        return "\\n";
    case '\\':
        return "\\\\";
    default:
        break;
    }
    if (byte >= ' ' && byte <= '~') return {byte};
    return "\\x" + HexPair(static_cast<std::uint8_t>(byte));
}

std::optional<char> ByteOf(std::string_view pair)
{
    unsigned value = 0;
    const auto* const end = pair.data() + pair.size();
    const auto [rest, error] = std::from_chars(pair.data(), end, value, 16);
    if (pair.size() != 2 || error != std::errc{} || rest != end) return std::nullopt;
    return static_cast<char>(value);
}

/// The byte of the escape that `text` starts with, and how many characters the escape has.
std::pair<std::optional<char>, std::size_t> ReadEscape(std::string_view text)
{
    switch (text.size() < 2 ? '\0' : text[1]) {
    case 'r':
        return {'\r', 2};
    case 'n':
        return {'\n', 2};
    case '\\':
        return {'\\', 2};
    case 'x':
        return {ByteOf(text.substr(2, 2)), 4};
    default:
        return {std::nullopt, 0};
    }
}
} // namespace

std::string Escape(std::string_view bytes)
{
    std::string text;
    for (const char byte : bytes)
        text += EscapeByte(byte);
    return text;
}

std::string Unescape(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        if (text.front() != '\\') {
            bytes += text.front();
            text.remove_prefix(1);
            continue;
        }
        const auto [byte, length] = ReadEscape(text);
        if (!byte) throw std::invalid_argument("a backslash needs r, n, \\ or xHH after it");
        bytes += *byte;
        text.remove_prefix(length);
    }
    return bytes;
}

} // namespace tarvex::unit
