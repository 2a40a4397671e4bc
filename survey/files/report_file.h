#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace tarvex::survey
{

/// No report of the unit is longer, whatever other hands have done to it.
inline constexpr std::size_t kMostBytes = std::size_t{1} << 20U;

/// The bytes of a file, or why they were not read.
struct FileBytes {
    std::string bytes;
    std::string refusal; ///< one sentence without the file's name; empty when the bytes are there
};

/// Reads an ordinary file of at most kMostBytes bytes, for reading only. Never waits: a pipe, a
/// socket, a device or a folder is refused, also through a link.
FileBytes ReadBytes(const std::filesystem::path& path);

} // namespace tarvex::survey
