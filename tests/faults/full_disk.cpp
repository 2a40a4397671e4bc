#include "full_disk.h"

#include <algorithm>
#include <cerrno>
#include <dlfcn.h>
#include <fcntl.h>
#include <limits>
#include <optional>
#include <sys/stat.h>
#include <sys/uio.h>
#include <system_error>
#include <unistd.h>

namespace tarvex::tests
{

namespace
{

struct Disk {
    std::filesystem::path folder;
    std::uintmax_t bytes;
};

std::optional<Disk> disk;

std::uintmax_t Used()
{
    std::uintmax_t used = 0;
    std::error_code gone; // a file can be, between its name and its size
    for (const auto& entry : std::filesystem::recursive_directory_iterator(disk->folder, gone)) {
        const auto size = entry.is_regular_file(gone) ? entry.file_size(gone) : 0;
        if (!gone) used += size;
    }
    return used;
}

std::uintmax_t Free()
{
    const auto used = Used();
    return used < disk->bytes ? disk->bytes - used : 0;
}

/// How many of `count` bytes find room in the file at `offset`. What overwrites needs none.
std::size_t Fitting(int file, off64_t offset, std::size_t count)
{
    struct stat64 status {
    };
    if (!disk || ::fstat64(file, &status) != 0 || !S_ISREG(status.st_mode)) return count;
    const auto end = std::max(status.st_size, offset) + static_cast<off64_t>(Free());
    return std::min(count, static_cast<std::size_t>(std::max<off64_t>(end - offset, 0)));
}

off64_t Position(int file)
{
    struct stat64 status {
    };
    const bool appends = (::fcntl(file, F_GETFL) & O_APPEND) != 0;
    if (appends && ::fstat64(file, &status) == 0) return status.st_size;
    return ::lseek64(file, 0, SEEK_CUR);
}

ssize_t NoSpace()
{
    errno = ENOSPC;
    return -1;
}

/// The system's own operation of that name.
template <class Operation>
Operation* System(Operation* /*ours*/, const char* name)
{
    return reinterpret_cast<Operation*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

void LimitDisk(const std::filesystem::path& folder, std::uintmax_t bytes)
{
    disk = Disk{folder, bytes};
}

} // namespace tarvex::tests

// Of two operations of one name the program's own goes before the system's, for its libraries too.
extern "C" {

ssize_t write(int file, const void* bytes, size_t count)
{
    using namespace tarvex::tests;
    static const auto system = System(&::write, "write");
    const auto fitting = Fitting(file, Position(file), count);
    return fitting == 0 && count > 0 ? NoSpace() : system(file, bytes, fitting);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset)
{
    using namespace tarvex::tests;
    static const auto system = System(&::pwrite64, "pwrite64");
    const auto fitting = Fitting(file, offset, count);
    return fitting == 0 && count > 0 ? NoSpace() : system(file, bytes, fitting, offset);
}

/// On such a disk one part after the other: what fits of them is what fits of the whole.
ssize_t writev(int file, const iovec* parts, int count)
{
    using namespace tarvex::tests;
    static const auto system = System(&::writev, "writev");
    if (!disk) return system(file, parts, count);
    ssize_t written = 0;
    for (int index = 0; index < count; ++index) {
        if (parts[index].iov_len == 0) continue;
        const ssize_t part = ::write(file, parts[index].iov_base, parts[index].iov_len);
        if (part < 0) return written > 0 ? written : part;
        written += part;
        if (static_cast<size_t>(part) < parts[index].iov_len) break;
    }
    return written;
}
}
