#pragma once

#include "unit/memory.h"

#include <filesystem>

namespace tarvex::unit
{

/// The memory kept in a file: its image and nothing else, so that block n starts at byte
/// (n - 1) x 4096. Throws std::runtime_error when the file cannot be read or is not as long as
/// that.
Memory LoadMemory(const std::filesystem::path& path);

/// Keeps the memory in a file. The file is replaced in one go, so a reader finds the old image or
/// the new one. Throws std::runtime_error when it cannot be written.
void SaveMemory(const Memory& memory, const std::filesystem::path& path);

} // namespace tarvex::unit
