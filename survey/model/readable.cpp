#include "survey/model/readable.h"

#include "survey/model/utf8.h"

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

} // namespace tarvex::survey
