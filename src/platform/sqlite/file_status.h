#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tarvex::platform
{

/// What the system says of a file. Times are nanoseconds since a moment of the system's choice.
struct FileStatus {
    std::uint64_t device = 0; ///< with `file`: which file it is, whatever its name
    std::uint64_t file = 0;
    std::int64_t size = 0;
    std::int64_t written = 0; ///< its last write; a copy may have set it back
    std::int64_t changed = 0; ///< the last change of any of this, which cannot be set back
};

/// The status of a file; none when there is none. No lock on the file is touched.
std::optional<FileStatus> StatusOf(const std::filesystem::path& path);

/// Whether this user may make files in a folder.
bool MayMakeFilesIn(const std::filesystem::path& folder);

} // namespace tarvex::platform
