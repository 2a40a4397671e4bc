#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

namespace tarvex::tests
{

namespace
{

/// A file system in memory, where there is one: some hundred tests make some thousand files.
std::filesystem::path FolderOfFolders()
{
    const std::filesystem::path memory = "/dev/shm";
    std::error_code ignored;
    const auto writable = std::filesystem::perms::others_write;
    const bool usable =
        (std::filesystem::status(memory, ignored).permissions() & writable) == writable;
    return usable && std::getenv("TMPDIR") == nullptr ? memory
                                                      : std::filesystem::temp_directory_path();
}

} // namespace

TemporaryFolder::TemporaryFolder()
{
    static std::mt19937_64 random(std::random_device{}());
    do {
        path_ = FolderOfFolders() / ("tarvex-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string FileBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << "no file " << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> NamesIn(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void WriteFile(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.flush()) << "cannot write " << path;
}

} // namespace tarvex::tests
