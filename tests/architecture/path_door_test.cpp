#include "architecture/sources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{
namespace
{

/// The doors between paths, the program's text and the toolkit's: what a name looks like elsewhere
/// is never turned into another form by hand, for a path may be no Unicode at all.
constexpr std::array<std::string_view, 3> kDoors = {
    "src/core/path_text.cpp", "src/platform/text/qt_text.cpp", "survey/window/path_text.cpp"};

/// Conversions of texts that are never paths: what a report holds.
constexpr std::array<std::string_view, 1> kTextsOfOthers = {"survey/window/window_text.h"};

/// What only exists where the system has drives.
constexpr std::string_view kDrives = "src/panel/forms/machine_places.cpp";

/// The conversions of a path that fail or change it, and the toolkit's classes that hold one.
const std::regex& PathConversion()
{
    static const std::regex pattern(
        R"(\.\s*(generic_)?(u8|u16|u32|w)?string\s*(<[^>]*>)?\s*\(\)|u8path|filesystem\w*Path\b)"
        R"(|\b(to|from)Std(U16|U32|W)String\b|\b(en|de)codeName\b|\b(to|from)Local8Bit\b)"
        R"(|\bQ(Temporary|Save)?(File|Dir)(Info|Iterator)?\b|\bQDirListing\b|\bQStorageInfo\b)");
    return pattern;
}

const std::regex& TextConversion()
{
    static const std::regex pattern(R"(\b(to|from)StdString\b)");
    return pattern;
}

bool IsOneOf(std::string_view file, auto files)
{
    return std::find(files.begin(), files.end(), file) != files.end();
}

std::string WithoutComment(const std::string& line)
{
    return line.substr(0, line.find("//"));
}

bool Converts(std::string_view file, const std::string& line)
{
    if (IsOneOf(file, kDoors)) return false;
    const std::string code = WithoutComment(line);
    if (std::regex_search(code, PathConversion())) return file != kDrives;
    return std::regex_search(code, TextConversion()) && !IsOneOf(file, kTextsOfOthers);
}

/// Every conversion below src/ and survey/. The unit takes its names from its command line alone.
std::vector<std::string> Conversions()
{
    std::vector<std::string> found;
    for (const std::string& file : FilesOfTheProject({".cpp", ".h"})) {
        if (file.starts_with("unit/")) continue;
        std::istringstream lines(Read(file));
        for (std::string line; std::getline(lines, line);)
            if (Converts(file, line)) found.push_back(file + ": " + line);
    }
    return found;
}

TEST(PathDoor, NoSourceTurnsAPathIntoATextOrBackByItself)
{
    EXPECT_THAT(Conversions(), ::testing::IsEmpty());
}

TEST(PathDoor, EveryDoorAndExceptionIsThere)
{
    for (const std::string_view file : kDoors)
        EXPECT_TRUE(IsThere(file)) << file;
    for (const std::string_view file : kTextsOfOthers)
        EXPECT_TRUE(IsThere(file)) << file;
    EXPECT_TRUE(IsThere(kDrives));
}

TEST(PathDoor, AConversionByHandIsFound)
{
    for (const std::string line :
         {"name = path.string();", "auto name = path.u16string();", "path.u8string ()",
          "path.string<char16_t>()", "folder.generic_string();", "QFileInfo(name).size();",
          "const QDir folder(name);", "QFile file(path);", "info.filesystemFilePath()",
          "path = text.toStdU16String();", "QString::fromStdU16String(name)",
          "QFile::encodeName(name)", "name.toLocal8Bit()", "path = name.toStdString();",
          "std::filesystem::u8path(name)", "QTemporaryDir folder;"})
        EXPECT_TRUE(Converts("src/download/any.cpp", line)) << line;
}

TEST(PathDoor, WhatIsNoConversionPasses)
{
    for (const std::string line :
         {"std::string name;", "path / \"dati\"", "return QString::fromUtf8(text);",
          "// as path.string() would", "QFileDialog dialog;", "std::string();",
          "FileDialog& dialog", "u16string_view text"})
        EXPECT_FALSE(Converts("src/download/any.cpp", line)) << line;
}

} // namespace
} // namespace tarvex::tests
