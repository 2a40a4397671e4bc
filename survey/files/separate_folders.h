#pragma once

#include <filesystem>
#include <vector>

namespace tarvex::survey
{

/// These folders in their order without those that another of them holds or that are named twice,
/// so that nothing below them is found two times.
std::vector<std::filesystem::path> Separate(const std::vector<std::filesystem::path>& folders);

} // namespace tarvex::survey
