#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// A folder of its own for one test, removed at its end.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    std::filesystem::path operator/(std::string_view name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// What the system puts between the names of a path.
inline const std::string kSeparator(1,
                                    static_cast<char>(std::filesystem::path::preferred_separator));

/// All bytes of a file; the test fails when there is none.
std::string FileBytes(const std::filesystem::path& path);

/// The names of what lies in a folder, sorted.
std::vector<std::string> NamesIn(const std::filesystem::path& folder);

/// Makes a file of those bytes.
void WriteFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace tarvex::tests
