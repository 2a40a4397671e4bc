#include "common/choices.h"

#include <algorithm>

namespace tarvex::fuzz
{

namespace
{

using namespace std::string_view_literals;

constexpr std::string_view kHostile[] = {
    "",       "ROSSI   ", "00",      "01",     "30",       "31",       "-1",     "99999",
    "0",      "1",        "2",       "4",      "0300",     "030",      "999",    "+045",
    "..",     ".",        "../x",    "/",      "/tmp/x",   "\\",       "..\\x",  "a/../../b",
    "C:",     "C:\\x",    "NUL",     "CON",    "COM1",     "LPT1.dat", "AUX",    "~",
    "*",      "?",        "<>|\"",   "-",      " ",        "   .",     "a\0b"sv, "\0"sv,
    "\r",     "\n",       "}",       "!",      "é",        "\xff\xfe", "\x80",   "%s%n",
    "'",      "' or [b]", "DELL'OR", "1e9",    "0x1F",     "NaN",      "inf",    "-00000",
    "GGMMAA", "hhmmss",   "260101",  "093015", "-dat.dat", "x.lnk:$D", "5.",     "0.5"};

} // namespace

unsigned Choices::Below(unsigned bound)
{
    unsigned number = 0;
    for (unsigned reach = 1; reach < bound && !rest_.empty(); reach *= 256) {
        number = number * 256 + static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
    }
    return number % bound;
}

std::string Choices::Bytes(std::size_t most)
{
    const auto wanted = Below(static_cast<unsigned>(most) + 1);
    std::string bytes(rest_.substr(0, wanted));
    rest_.remove_prefix(bytes.size());
    return bytes;
}

std::string Choices::HostileText(std::size_t most)
{
    if (Chance(25)) return Bytes(most);
    return std::string(OneOf(kHostile).substr(0, most));
}

} // namespace tarvex::fuzz
