#include "platform/sqlite/file_status.h"

#include <windows.h>

#include <memory>

namespace tarvex::platform
{

namespace
{

/// Since 1970. The system counts since 1601, which is more nanoseconds than a number holds.
std::int64_t Nanoseconds(const LARGE_INTEGER& time)
{
    constexpr std::int64_t kTick = 100; // nanoseconds, in which the system counts
    constexpr std::int64_t kTicksBefore1970 = 116'444'736'000'000'000;
    return (time.QuadPart - kTicksBefore1970) * kTick;
}

std::uint64_t Joined(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32 | low;
}

struct Close {
    void operator()(HANDLE file) const { ::CloseHandle(file); }
};
using File = std::unique_ptr<void, Close>;

/// Opens for that right alone, without keeping another program from anything; none when refused.
File Open(const std::filesystem::path& path, DWORD right)
{
    constexpr DWORD withAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = ::CreateFileW(path.c_str(), right, withAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    return File(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

} // namespace

std::optional<FileStatus> StatusOf(const std::filesystem::path& path)
{
    const File file = Open(path, FILE_READ_ATTRIBUTES);
    BY_HANDLE_FILE_INFORMATION whole{};
    FILE_BASIC_INFO times{};
    if (!file || !::GetFileInformationByHandle(file.get(), &whole) ||
        !::GetFileInformationByHandleEx(file.get(), FileBasicInfo, &times, sizeof times)) {
        return std::nullopt;
    }
    return FileStatus{whole.dwVolumeSerialNumber, Joined(whole.nFileIndexHigh, whole.nFileIndexLow),
                      static_cast<std::int64_t>(Joined(whole.nFileSizeHigh, whole.nFileSizeLow)),
                      Nanoseconds(times.LastWriteTime), Nanoseconds(times.ChangeTime)};
}

bool MayMakeFilesIn(const std::filesystem::path& folder)
{
    return Open(folder, FILE_ADD_FILE) != nullptr;
}

} // namespace tarvex::platform
