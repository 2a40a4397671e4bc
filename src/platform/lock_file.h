#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvex::platform
{

/// Where programs leave the lock files of serial devices, and where a device has further names, by
/// which a program may have opened it.
struct LockFolders {
    std::filesystem::path locks = "/var/lock";
    std::vector<std::filesystem::path> names = {"/dev/serial/by-id", "/dev/serial/by-path"};
};

/// The process that a lock file names: a decimal number in front, as in "1234" and "1234 minicom
/// root", or the four bytes of a number as the machine keeps it. 0 when it names none.
int ProcessNamedBy(std::string_view content);

/// The lock files that there are for a device, under each of its names, in no order.
std::vector<std::filesystem::path> LockFilesOf(const std::filesystem::path& device,
                                               const LockFolders& folders);

/// A lock file that keeps the device.
struct LockFileHold {
    std::filesystem::path file;
    int process = 0; ///< 0 when the file does not name it: nobody can know whether it has ended
};

/// The lock file that keeps a device; none when there is no file, or only files of processes that
/// have ended. One that names this very process was left by an earlier one of its number; one that
/// has been empty for a second, by a program that was killed before it wrote its number.
std::optional<LockFileHold> HoldByLockFile(const std::filesystem::path& device,
                                           const LockFolders& folders);

/// Takes away those lock files of a device that do not keep it. False when a file stays, as one of
/// another user does in a folder where only the owner removes.
bool RemoveLockFiles(const std::filesystem::path& device, const LockFolders& folders);

} // namespace tarvex::platform
