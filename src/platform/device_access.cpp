#include "platform/device_access.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

std::string PermittedGroup(const struct stat& device)
{
    constexpr mode_t kGroupUses = S_IRGRP | S_IWGRP;
    if ((device.st_mode & kGroupUses) != kGroupUses) return {};
    const group* const owner = ::getgrgid(device.st_gid);
    return owner != nullptr ? owner->gr_name : std::to_string(device.st_gid);
}

} // namespace

DeviceAccess AccessTo(const std::filesystem::path& device)
{
    struct stat status {
    };
    if (::stat(device.c_str(), &status) != 0) return {};
    const bool permitted = ::faccessat(AT_FDCWD, device.c_str(), R_OK | W_OK, AT_EACCESS) == 0;
    return {true, permitted, PermittedGroup(status)};
}

} // namespace tarvex::platform
