#include "platform/opening_refusal.h"

#include "platform/device_access.h"
#include "platform/device_kind.h"

namespace tarvex::platform
{

std::string HeldText(const std::optional<DeviceHolder>& holder)
{
    const std::string name = holder ? holder->Name() : std::string();
    return "in use by " + (name.empty() ? "another program" : name);
}

std::string RefusalText(const std::filesystem::path& device,
                        const std::filesystem::path& characterDevices)
{
    const DeviceAccess access = AccessTo(device);
    if (!access.there) return "no such device";
    const DeviceKind kind = KindOf(device, characterDevices);
    if (kind == DeviceKind::WithoutHardware) return "no hardware for it";
    if (kind == DeviceKind::Other) return "no serial device";
    return access.permitted ? "the device does not answer" : "permission denied";
}

} // namespace tarvex::platform
