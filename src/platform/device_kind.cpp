#include "platform/device_kind.h"

#include "platform/device_number.h"

#include <fstream>
#include <sys/stat.h>
#include <system_error>

namespace tarvex::platform
{

namespace fs = std::filesystem;

/// A chip type of 0 is "unknown": the driver found nothing at the port's address.
bool HasNoChip(const fs::path& description)
{
    int type = -1;
    std::ifstream(description / "type") >> type;
    return type == 0;
}

DeviceKind KindOf(const fs::path& device, const fs::path& characterDevices)
{
    if (!fs::is_character_file(device)) return DeviceKind::Other;
    const fs::path description = characterDevices / DeviceNumberOf(device);
    std::error_code untold; // a pseudo terminal is described nowhere
    const fs::path subsystem = fs::read_symlink(description / "subsystem", untold);
    if (!untold && subsystem.filename() != "tty") return DeviceKind::Other;
    return HasNoChip(description) ? DeviceKind::WithoutHardware : DeviceKind::Serial;
}

} // namespace tarvex::platform
