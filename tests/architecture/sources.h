#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// A file by its path from the top of the project; one that cannot be read fails the test.
std::string Read(const std::string& file);

/// The files below src/, unit/ and survey/ whose names end so, by their paths from the top of the
/// project.
std::vector<std::string> FilesOfTheProject(const std::vector<std::string_view>& endings);

/// Whether the project has the file of that path.
bool IsThere(std::string_view file);

} // namespace tarvex::tests
