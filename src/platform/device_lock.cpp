#include "platform/device_lock.h"

#include "core/code_page.h"
#include "platform/device_holder.h"
#include "platform/exclusive_holder.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace tarvex::platform
{

namespace
{

[[noreturn]] void ThrowHeld(const std::filesystem::path& device, const std::string& holder)
{
    throw DeviceHeld("Port in use: " + code_page::Shown(device) +
                     (holder.empty() ? "" : ", by " + holder));
}

[[noreturn]] void ThrowRefusal(int error, const std::filesystem::path& device)
{
    if (error == EBUSY || error == EWOULDBLOCK) ThrowHeld(device, {});
    const bool forbidden = error == EACCES || error == EPERM;
    throw RunTimeFailure((forbidden ? "Port not permitted: " : "No such port: ") +
                         code_page::Shown(device));
}

void RequireUnheld(const std::filesystem::path& device, const LockFolders& folders)
{
    if (const auto holder = HolderByLock(device, folders)) ThrowHeld(device, holder->Name());
}

/// Takes the lock on an open descriptor. 0, or the system's number for the failure.
int Take(int descriptor)
{
    if (::isatty(descriptor) == 0) return ENOTTY;
    int heldExclusively = 0;
#ifdef TIOCGEXCL
    if (::ioctl(descriptor, TIOCGEXCL, &heldExclusively) != 0) heldExclusively = 0;
#endif
    if (heldExclusively != 0) return EBUSY;
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
}

int OpenHeedingTheFlag(const std::filesystem::path& device)
{
    const ExclusiveFlagHeeded asAnyUser;
    return ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
}

std::filesystem::path ByDescriptor(int descriptor)
{
    return "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(descriptor);
}

} // namespace

DeviceLock::DeviceLock(const std::filesystem::path& device, const LockFolders& folders)
    : name_(device)
{
    RequireUnheld(device, folders);
    descriptor_ = OpenHeedingTheFlag(device);
    const int error = descriptor_ >= 0 ? Take(descriptor_) : errno;
    if (error != 0) {
        Release();
        ThrowRefusal(error, device);
    }
    if (!RemoveLockFiles(device, folders)) name_ = ByDescriptor(descriptor_);
}

void DeviceLock::Release()
{
    if (descriptor_ < 0) return;
    ::close(std::exchange(descriptor_, -1));
}

} // namespace tarvex::platform
