#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace tarvex::survey
{

/// Writes an export to a path, whole or not at all: `write` is given the name of a file beside it
/// that takes its place when all is written. Throws Refusal, with nothing changed, for a path whose
/// name is one of the manager's files, that is one of `inputs`, that holds a report or is no
/// ordinary file, and when the writing fails.
void WriteOutput(const std::filesystem::path& path,
                 const std::vector<std::filesystem::path>& inputs,
                 const std::function<void(const std::filesystem::path&)>& write);

/// Puts bytes into a file. Throws std::runtime_error when they cannot all be written.
void PutBytes(const std::filesystem::path& path, std::string_view bytes);

/// Writes text by WriteOutput.
void WriteText(const std::filesystem::path& path, const std::vector<std::filesystem::path>& inputs,
               std::string_view text);

} // namespace tarvex::survey
