#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvex::platform
{

/// A file as the system's table of locks names it.
struct FileNumber {
    unsigned deviceMajor = 0;
    unsigned deviceMinor = 0;
    std::uint64_t inode = 0;
};

/// The process that has an advisory lock, of whichever kind, on that file, from the text of
/// /proc/locks. 0 when a lock is there whose process the system does not name; none when there is
/// no lock. A process that waits for one has none.
std::optional<int> HolderInLockTable(std::string_view table, const FileNumber& file);

} // namespace tarvex::platform
