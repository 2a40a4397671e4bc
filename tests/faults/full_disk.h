#pragma once

#include <filesystem>

namespace tarvex::tests
{

/// From now on the files below `folder` take no more than so many bytes together: what this process
/// writes beyond that is cut short and then fails, as on a disk that is full. Space that a shorter
/// or a removed file gives back can be written again.
void LimitDisk(const std::filesystem::path& folder, std::uintmax_t bytes);

} // namespace tarvex::tests
