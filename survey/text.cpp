#include "survey/text.h"

#include <algorithm>
#include <array>

namespace tarvex::survey
{

namespace
{
constexpr char32_t kReplacement = 0xFFFD;
constexpr std::string_view kReplacementText = "\xEF\xBF\xBD";

/// 80 to 9F hexadecimal of Windows-1252; five of them are not assigned.
constexpr std::array<char32_t, 32> kUpperControls{
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178};

void Append(std::string& text, char32_t character)
{
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6U));
        tail(0);
    } else {
        text += static_cast<char>(0xE0U | (character >> 12U));
        tail(6);
        tail(0);
    }
}

bool IsControl(unsigned char byte)
{
    return byte < 0x20 || byte == 0x7F;
}

char32_t FromWindows1252(unsigned char byte)
{
    if (IsControl(byte)) return kReplacement;
    if (byte >= 0x80 && byte < 0xA0) return kUpperControls[byte - 0x80U];
    return byte;
}

/// Length of the well-formed character of several bytes that a text begins with; 0 if there is
/// none.
std::size_t CharacterLength(std::string_view text)
{
    const auto at = [&](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const auto follows = [&](std::size_t index, unsigned low = 0x80, unsigned high = 0xBF) {
        return at(index) >= low && at(index) <= high;
    };
    const unsigned first = at(0);
    // C2 80 to C2 9F are control characters again.
    if (first >= 0xC2 && first <= 0xDF) return follows(1, first == 0xC2 ? 0xA0 : 0x80) ? 2 : 0;
    if (first >= 0xE0 && first <= 0xEF) {
        const unsigned low = first == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = first == 0xED ? 0x9F : 0xBF;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (first >= 0xF0 && first <= 0xF4) {
        const unsigned low = first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = first == 0xF4 ? 0x8F : 0xBF;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

std::string ReadableUtf8(std::string_view bytes)
{
    std::string text;
    while (!bytes.empty()) {
        const auto first = static_cast<unsigned char>(bytes.front());
        std::size_t length = first < 0x80 ? 1 : CharacterLength(bytes);
        if (length == 0 || IsControl(first)) {
            text += kReplacementText;
            length = 1;
        } else {
            text += bytes.substr(0, length);
        }
        bytes.remove_prefix(length);
    }
    return text;
}
} // namespace

std::string Readable(std::string_view bytes, Encoding encoding)
{
    if (encoding == Encoding::Utf8) return ReadableUtf8(bytes);
    std::string text;
    for (const char byte : bytes)
        Append(text, FromWindows1252(static_cast<unsigned char>(byte)));
    return text;
}

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlank{" \t\0", 3};
    const auto first = text.find_first_not_of(kBlank);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

std::optional<int> WholeNumber(std::string_view digits)
{
    constexpr std::size_t kMostDigits = 9;
    if (digits.empty() || digits.size() > kMostDigits ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

std::optional<int> TenthsOf(std::string_view metres)
{
    constexpr int kMostMetres = 999;
    const auto sign = metres.find_first_of(".,");
    if (sign == std::string_view::npos || metres.size() != sign + 2) return std::nullopt;
    const auto whole = WholeNumber(metres.substr(0, sign));
    const auto tenth = WholeNumber(metres.substr(sign + 1));
    if (!whole || !tenth || *whole > kMostMetres) return std::nullopt;
    return *whole * 10 + *tenth;
}

std::size_t Width(std::string_view utf8)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

} // namespace tarvex::survey
