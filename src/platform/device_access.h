#pragma once

#include <filesystem>
#include <string>

namespace tarvex::platform
{

/// Whether the operator may use a device, asked without opening it.
struct DeviceAccess {
    bool there = false;     ///< false: nothing exists at that path
    bool permitted = false; ///< true: this user may read and write it
    std::string group = {}; ///< the group whose members may; empty when there is no such group
};

/// What this user may do with the device at that path, or with the target of a link.
DeviceAccess AccessTo(const std::filesystem::path& device);

} // namespace tarvex::platform
