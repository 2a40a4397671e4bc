#include "core/device_names.h"

#include <algorithm>
#include <array>
#include <string>

namespace tarvex
{

namespace
{

/// What counts of a name: all before its first point or colon, without the blanks at its end.
std::string_view Stem(std::string_view name)
{
    name = name.substr(0, name.find_first_of(".:"));
    return name.substr(0, name.find_last_not_of(' ') + 1);
}

char UpperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// A digit as the names of ports have it: 1 to 9, and the raised 1, 2 and 3 of the code page.
bool IsPortDigit(char letter)
{
    constexpr std::string_view digits = "123456789\xB9\xB2\xB3";
    return digits.find(letter) != std::string_view::npos;
}

} // namespace

bool NamesADevice(std::string_view name)
{
    std::string stem(Stem(name));
    std::ranges::transform(stem, stem.begin(), UpperCase);
    constexpr std::array<std::string_view, 6> devices = {"CON", "PRN",    "AUX",
                                                         "NUL", "CONIN$", "CONOUT$"};
    if (std::ranges::find(devices, stem) != devices.end()) return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
           IsPortDigit(stem.back());
}

} // namespace tarvex
