#pragma once

#include <filesystem>
#include <string_view>

namespace tarvex::fuzz
{

/// From now on the input that this program dies of is written to a file in `folder`, named after
/// the moment, also when it dies of the time that it takes.
void KeepLastInputIn(const std::filesystem::path& folder);

/// The input that runs next. It must outlive its run.
void RememberInput(std::string_view input);

} // namespace tarvex::fuzz
