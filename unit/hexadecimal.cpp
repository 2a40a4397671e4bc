#include "unit/hexadecimal.h"

namespace tarvex::unit
{

namespace
{
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kAddressDigits = 5;
} // namespace

std::optional<std::uint32_t> AddressOf(std::string_view digits)
{
    if (digits.size() != kAddressDigits) return std::nullopt;
    std::uint32_t address = 0;
    for (const char digit : digits) {
        const auto value = kDigits.find(digit);
        if (value == std::string_view::npos) return std::nullopt;
        address = address * 16 + static_cast<std::uint32_t>(value);
    }
    return address;
}

std::string HexPair(std::uint8_t byte)
{
    return {kDigits[byte / 16U], kDigits[byte % 16U]};
}

std::string PageText(const Page& page)
{
    std::string text;
    for (const auto byte : page)
        text += HexPair(byte) + " ";
    return text + "\r\n";
}

} // namespace tarvex::unit
