#pragma once

#include "platform/lock_file.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tarvex::platform
{

/// Who keeps a device to itself.
struct DeviceHolder {
    int process = 0;          ///< 0 when the system does not say
    std::string program = {}; ///< its name, "minicom"; empty when the system does not say
    std::filesystem::path lockFile = {}; ///< by which it holds; empty when by something else

    /// True when it is a port of this very program.
    bool IsOurs() const;

    /// "minicom (process 1234)", or as much of it as is known; else the lock file's path.
    std::string Name() const;
};

/// Who holds a device by an advisory lock or a lock file. The device is not opened for it: each
/// opening of a serial port raises its modem lines, also under the program that holds it.
std::optional<DeviceHolder> HolderByLock(const std::filesystem::path& device,
                                         const LockFolders& folders);

/// Who holds a device by a lock or by the exclusive flag, which shows only in processes that this
/// user may look into; quickly when it is still the process `formerly`. The device is not opened
/// for it.
std::optional<DeviceHolder> HolderOf(const std::filesystem::path& device,
                                     const LockFolders& folders, int formerly = 0);

} // namespace tarvex::platform
