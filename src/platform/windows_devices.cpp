#include "platform/device_access.h"
#include "platform/device_holder.h"
#include "platform/device_kind.h"
#include "platform/low_latency.h"
#include "platform/windows_system.h"

#include <array>

// What this system knows of a port without opening it is little: that it has a driver, which lets
// one program at a time open it and lets nobody see which.
namespace tarvex::platform
{

DeviceAccess AccessTo(const std::filesystem::path& device)
{
    std::array<wchar_t, 512> target{};
    const auto room = static_cast<DWORD>(target.size());
    const bool there = ::QueryDosDeviceW(device.c_str(), target.data(), room) != 0 ||
                       ::GetLastError() == ERROR_INSUFFICIENT_BUFFER;
    return {there, there, {}};
}

DeviceKind KindOf(const std::filesystem::path&, const std::filesystem::path&)
{
    return DeviceKind::Serial;
}

bool DeviceHolder::IsOurs() const
{
    return false;
}

std::string DeviceHolder::Name() const
{
    return {};
}

std::optional<DeviceHolder> HolderOf(const std::filesystem::path&, const LockFolders&, int)
{
    return std::nullopt;
}

/// An adapter's latency timer is among its settings in the device manager.
int LatencyMilliseconds(const std::filesystem::path&, const std::filesystem::path&)
{
    return 0;
}

int CallDriver(int, unsigned long, serial_struct*)
{
    return -1;
}

} // namespace tarvex::platform
