#pragma once

#include "platform/device_holder.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tarvex::platform
{

/// Why a device that is held has just not opened: "in use by ModemManager (process 812)", or "in
/// use by another program" where the system does not say by which.
std::string HeldText(const std::optional<DeviceHolder>& holder);

/// Why a device that nobody holds has just not opened: "no such device", "permission denied" and
/// the like. `characterDevices` is where the system describes its devices by their numbers.
std::string RefusalText(const std::filesystem::path& device,
                        const std::filesystem::path& characterDevices);

} // namespace tarvex::platform
