#include "platform/sqlite/file_status.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarvex::platform
{

namespace
{

std::int64_t Nanoseconds(const timespec& time)
{
    constexpr std::int64_t kSecond = 1'000'000'000;
    return time.tv_sec * kSecond + time.tv_nsec;
}

} // namespace

std::optional<FileStatus> StatusOf(const std::filesystem::path& path)
{
    struct stat status {
    };
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return FileStatus{status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim),
                      Nanoseconds(status.st_ctim)};
}

bool MayMakeFilesIn(const std::filesystem::path& folder)
{
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

} // namespace tarvex::platform
