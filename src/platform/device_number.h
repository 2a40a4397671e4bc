#pragma once

#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tarvex::platform
{

/// "188:0": the name under which the system describes a device; empty when there is none.
inline std::string DeviceNumberOf(const std::filesystem::path& device)
{
    struct stat status {
    };
    if (::stat(device.c_str(), &status) != 0) return {};
    return std::to_string(major(status.st_rdev)) + ":" + std::to_string(minor(status.st_rdev));
}

} // namespace tarvex::platform
