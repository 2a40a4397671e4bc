#pragma once

#include <string>
#include <string_view>

namespace tarvex::platform
{

/// The serial number of an adapter by the name under which Windows keeps it:
/// "USB\VID_1A86&PID_7523\A1B2" or "FTDIBUS\VID_0403+PID_6001+A1B2A\0000". Empty where the adapter
/// has none, and Windows names it by its socket.
std::string SerialNumberIn(std::string_view instance);

} // namespace tarvex::platform
