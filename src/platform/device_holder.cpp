#include "platform/device_holder.h"

#include "platform/exclusive_holder.h"
#include "platform/lock_table.h"

#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;

std::string ProgramOf(int process)
{
    std::ifstream stream("/proc/" + std::to_string(process) + "/comm");
    std::string name;
    std::getline(stream, name);
    return name;
}

DeviceHolder HolderFor(int process, fs::path lockFile = {})
{
    return {process, process > 0 ? ProgramOf(process) : std::string(), std::move(lockFile)};
}

std::optional<int> HolderByAdvisoryLock(const fs::path& device)
{
    struct stat status {
    };
    if (::stat(device.c_str(), &status) != 0) return std::nullopt;
    std::ifstream stream("/proc/locks");
    const std::string table{std::istreambuf_iterator<char>(stream), {}};
    return HolderInLockTable(table, {major(status.st_dev), minor(status.st_dev), status.st_ino});
}

} // namespace

bool DeviceHolder::IsOurs() const
{
    return process == ::getpid();
}

std::string DeviceHolder::Name() const
{
    if (process == 0) return lockFile.empty() ? std::string() : "lock file " + lockFile.native();
    const std::string number = "process " + std::to_string(process);
    return program.empty() ? number : program + " (" + number + ")";
}

std::optional<DeviceHolder> HolderByLock(const fs::path& device, const LockFolders& folders)
{
    if (const auto process = HolderByAdvisoryLock(device)) return HolderFor(*process);
    if (const auto hold = HoldByLockFile(device, folders)) {
        return HolderFor(hold->process, hold->file);
    }
    return std::nullopt;
}

std::optional<DeviceHolder> HolderOf(const fs::path& device, const LockFolders& folders,
                                     int formerly)
{
    if (auto holder = HolderByLock(device, folders)) return holder;
    if (const auto process = ExclusiveHolderOf(device, formerly)) return HolderFor(*process);
    return std::nullopt;
}

} // namespace tarvex::platform
