#include "platform/exclusive_holder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <linux/capability.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace tarvex::platform
{

namespace
{

namespace fs = std::filesystem;

std::optional<int> NumberOf(const fs::path& entry)
{
    const std::string name = entry.filename().native();
    int number = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// The numbers that name entries of a folder of the system's; empty when it may not be read.
std::vector<int> NumbersIn(const fs::path& folder)
{
    std::vector<int> numbers;
    std::error_code refused;
    for (fs::directory_iterator entry(folder, refused), end; entry != end && !refused;
         entry.increment(refused)) {
        if (const auto number = NumberOf(entry->path())) numbers.push_back(*number);
    }
    return numbers;
}

bool IsSameDevice(const fs::path& path, dev_t device)
{
    struct stat status {
    };
    return ::stat(path.c_str(), &status) == 0 && S_ISCHR(status.st_mode) &&
           status.st_rdev == device;
}

/// Whether another process's opening carries the flag; false when the system does not let us look.
bool CarriesFlag(int process, int descriptor)
{
    const auto handle = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
    if (handle < 0) return false;
    const auto copy = static_cast<int>(::syscall(SYS_pidfd_getfd, handle, descriptor, 0));
    int exclusive = 0;
    const bool read = copy >= 0 && ::ioctl(copy, TIOCGEXCL, &exclusive) == 0;
    if (copy >= 0) ::close(copy);
    ::close(handle);
    return read && exclusive != 0;
}

bool HoldsExclusively(int process, dev_t device)
{
    const fs::path folder = fs::path("/proc") / std::to_string(process) / "fd";
    const std::vector<int> descriptors = NumbersIn(folder);
    return std::ranges::any_of(descriptors, [&](int descriptor) {
        return IsSameDevice(folder / std::to_string(descriptor), device) &&
               CarriesFlag(process, descriptor);
    });
}

using Capabilities = std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3>;

bool Exchange(long call, Capabilities& capabilities)
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    return ::syscall(call, &header, capabilities.data()) == 0;
}

constexpr unsigned kAdministrator = 1U << CAP_SYS_ADMIN;

} // namespace

std::optional<int> ExclusiveHolderOf(const fs::path& device, int formerly)
{
    struct stat status {
    };
    if (::stat(device.c_str(), &status) != 0 || !S_ISCHR(status.st_mode)) return std::nullopt;
    const auto holds = [&](int process) {
        return process != ::getpid() && HoldsExclusively(process, status.st_rdev);
    };
    if (formerly > 0 && holds(formerly)) return formerly;
    const std::vector<int> processes = NumbersIn("/proc");
    const auto holder = std::ranges::find_if(processes, holds);
    return holder != processes.end() ? std::optional(*holder) : std::nullopt;
}

ExclusiveFlagHeeded::ExclusiveFlagHeeded()
{
    Capabilities capabilities{};
    if (!Exchange(SYS_capget, capabilities)) return;
    if ((capabilities[0].effective & kAdministrator) == 0) return;
    capabilities[0].effective &= ~kAdministrator;
    lowered_ = Exchange(SYS_capset, capabilities);
}

ExclusiveFlagHeeded::~ExclusiveFlagHeeded()
{
    Capabilities capabilities{};
    if (!lowered_ || !Exchange(SYS_capget, capabilities)) return;
    capabilities[0].effective |= kAdministrator;
    Exchange(SYS_capset, capabilities);
}

} // namespace tarvex::platform
