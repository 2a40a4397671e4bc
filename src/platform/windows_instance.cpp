#include "platform/windows_instance.h"

namespace tarvex::platform
{

namespace
{

/// What comes after the last of these characters.
std::string_view After(std::string_view text, char separator)
{
    return text.substr(text.find_last_of(separator) + 1);
}

/// The number in the second part, with a letter for the channel at its end.
std::string_view InBusName(std::string_view instance)
{
    const std::string_view device = instance.substr(0, instance.find_last_of('\\'));
    if (device.find('+') == device.rfind('+')) return {};
    const std::string_view number = After(device, '+');
    return number.substr(0, number.size() - (number.empty() ? 0 : 1));
}

} // namespace

std::string SerialNumberIn(std::string_view instance)
{
    std::string_view number;
    if (instance.starts_with("FTDIBUS\\")) number = InBusName(instance);
    if (instance.starts_with("USB\\")) number = After(instance, '\\');
    const bool socket = number.find('&') != std::string_view::npos;
    return socket ? std::string() : std::string(number);
}

} // namespace tarvex::platform
