#pragma once

#include <filesystem>
#include <vector>

namespace tarvex::survey
{

/// Throws Refusal for a path that no export may be written to: one whose name is that of one of the
/// manager's files, one of `inputs`, one that holds a report or is no ordinary file.
void RequireSafe(const std::filesystem::path& path,
                 const std::vector<std::filesystem::path>& inputs);

} // namespace tarvex::survey
