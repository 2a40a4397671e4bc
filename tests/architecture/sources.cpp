#include "architecture/sources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvex::tests
{
namespace
{

std::filesystem::path Top()
{
    return TARVEX_SOURCE_FOLDER;
}

} // namespace

std::string Read(const std::string& name)
{
    std::ifstream file(Top() / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> FilesOfTheProject(const std::vector<std::string_view>& endings)
{
    std::vector<std::string> files;
    for (const std::string_view folder : {"src", "unit", "survey"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Top() / folder)) {
            const std::string name = entry.path().lexically_relative(Top()).generic_string();
            if (std::any_of(endings.begin(), endings.end(),
                            [&](std::string_view ending) { return name.ends_with(ending); }))
                files.push_back(name);
        }
    }
    return files;
}

bool IsThere(std::string_view file)
{
    return std::filesystem::exists(Top() / file);
}

} // namespace tarvex::tests
