#pragma once

#include "platform/windows_system.h"

#include <filesystem>
#include <optional>

namespace tarvex::platform
{

/// Opens a port by its name, "COM3" or "COM12", for calls that end later: 9600 baud, 8 data bits,
/// no parity, 2 stop bits, no flow control, DTR on, RTS off, both buffers empty. No other program
/// can open it meanwhile. A read ends with its last byte. Fails as DeviceHeld when another program
/// has it, else as RunTimeFailure with the reason.
SystemHandle OpenSerialHandle(const std::filesystem::path& port);

/// How many bytes of an open port wait to be read; none when its device has gone.
std::optional<DWORD> BytesReceived(HANDLE port);

} // namespace tarvex::platform
