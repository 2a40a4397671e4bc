#include "platform/sqlite/file_status.h"

#include <windows.h>

#include <memory>

namespace tarvex::platform
{

namespace
{

constexpr std::int64_t kTick = 100; // nanoseconds, in which the system counts

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
                      times.LastWriteTime.QuadPart * kTick, times.ChangeTime.QuadPart * kTick};
}

bool MayMakeFilesIn(const std::filesystem::path& folder)
{
    return Open(folder, FILE_ADD_FILE) != nullptr;
}

} // namespace tarvex::platform
