#pragma once

#include <filesystem>

namespace tarvex::platform
{

/// What there is at the end of a device's path.
enum class DeviceKind {
    Serial,          ///< a serial line, as far as the system knows
    WithoutHardware, ///< a built-in port that the machine has a node for, but no chip
    Other,           ///< a file, a folder, a disk: nothing that opens as a serial line
};

/// The kind of an existing device, asked without opening it. `characterDevices` is where the system
/// describes its devices by their numbers.
DeviceKind KindOf(const std::filesystem::path& device,
                  const std::filesystem::path& characterDevices = "/sys/dev/char");

/// True for a built-in port for which the driver found no chip, by the folder in which the system
/// describes it.
bool HasNoChip(const std::filesystem::path& description);

} // namespace tarvex::platform
