#include "platform/windows_serial_handle.h"

#include "core/code_page.h"
#include "platform/device_lock.h"

#include <string>
#include <system_error>

namespace tarvex::platform
{

namespace
{

constexpr DWORD kInBufferSize = 1024;
constexpr DWORD kOutBufferSize = 1024;

[[noreturn]] void ThrowRefusal(DWORD error, const std::filesystem::path& port)
{
    const std::string name = code_page::Shown(port);
    if (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION)
        throw DeviceHeld("Port in use: " + name);
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND)
        throw RunTimeFailure("No such port: " + name);
    throw RunTimeFailure("Port cannot be opened: " + name + ", error " + std::to_string(error));
}

void Require(BOOL done, const std::filesystem::path& port)
{
    if (!done) ThrowRefusal(::GetLastError(), port);
}

/// By the name of a device, for a bare one means a file beyond COM9.
std::filesystem::path DeviceName(const std::filesystem::path& port)
{
    return std::filesystem::path(LR"(\\.\)").concat(port.native());
}

DCB LineOf(HANDLE handle, const std::filesystem::path& port)
{
    DCB line{};
    line.DCBlength = sizeof line;
    Require(::GetCommState(handle, &line), port);
    line.BaudRate = CBR_9600;
    line.ByteSize = 8;
    line.Parity = NOPARITY;
    line.StopBits = TWOSTOPBITS;
    line.fBinary = TRUE;
    line.fParity = FALSE;
    line.fOutxCtsFlow = FALSE;
    line.fOutxDsrFlow = FALSE;
    line.fDsrSensitivity = FALSE;
    line.fOutX = FALSE;
    line.fInX = FALSE;
    line.fErrorChar = FALSE;
    line.fNull = FALSE; // a NUL is a character as any other
    line.fDtrControl = DTR_CONTROL_ENABLE;
    line.fRtsControl = RTS_CONTROL_DISABLE;
    line.fAbortOnError = FALSE; // a disturbed character ends no transfer
    return line;
}

/// A read ends with its last byte, however late that comes; a write has no limit either.
constexpr COMMTIMEOUTS kTimes = {0, 0, 0, 0, 0};

} // namespace

SystemHandle OpenSerialHandle(const std::filesystem::path& port)
{
    constexpr DWORD alone = 0; // shared with nobody
    SystemHandle handle(::CreateFileW(DeviceName(port).c_str(), GENERIC_READ | GENERIC_WRITE, alone,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
    if (!handle) ThrowRefusal(::GetLastError(), port);
    DCB line = LineOf(handle.Get(), port);
    COMMTIMEOUTS times = kTimes;
    Require(::SetCommState(handle.Get(), &line), port);
    Require(::SetCommTimeouts(handle.Get(), &times), port);
    ::SetupComm(handle.Get(), kInBufferSize, kOutBufferSize); // a driver may have its own idea
    ::PurgeComm(handle.Get(), PURGE_RXCLEAR | PURGE_TXCLEAR);
    return handle;
}

std::optional<DWORD> BytesReceived(HANDLE port)
{
    DWORD errors = 0;
    COMSTAT status{};
    if (!::ClearCommError(port, &errors, &status)) return std::nullopt;
    return status.cbInQue;
}

} // namespace tarvex::platform
