#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{
namespace
{

/// What the files of a folder may include besides their own folder and the standard library. An
/// entry that ends in "/" is a folder, any other a single header.
struct Room {
    std::string_view folder;
    std::vector<std::string_view> mayInclude;
    bool toolkit = false; ///< Qt and the system's own headers
};

/// The plan of the house: an arrow never points up. What is not in it belongs nowhere.
const std::vector<Room>& Plan()
{
    static const std::vector<Room> plan = {
        {"src/core", {}},
        {"src/link", {"core/"}},
        {"src/blocks", {"core/", "link/"}},
        {"src/download", {"core/", "link/"}},
        {"src/settings", {"core/", "link/"}},
        {"src/database", {"core/"}},
        {"src/panel/rules", {"core/"}}, // rules over the panel's boxes, without any window
        {"src/panel/widgets", {"core/", "platform/text/"}, true},
        {"src/panel/window",
         {"core/", "link/", "blocks/", "download/", "settings/", "database/", "panel/rules/",
          "panel/widgets/", "platform/text/"},
         true},
        {"src/panel/dialogs",
         {"core/", "link/", "settings/", "panel/rules/", "panel/widgets/", "panel/window/"},
         true},
        {"src/panel/forms",
         {"core/", "link/", "panel/widgets/", "panel/window/", "panel/dialogs/", "platform/text/"},
         true},
        {"src/panel/survey", {"core/", "database/", "panel/widgets/"}, true},
        {"src/platform/text", {"core/"}, true}, // the program's texts as the toolkit's
        {"src/platform", {"core/", "platform/text/"}, true},
        {"src/platform/sqlite",
         {"core/", "database/criterion.h", "database/record_set.h", "database/survey_fields.h",
          "database/value.h"},
         true},
        {"src/program",
         {"core/", "link/", "blocks/", "download/", "settings/", "database/", "panel/widgets/",
          "panel/window/", "panel/forms/", "panel/survey/", "platform/", "platform/sqlite/",
          "platform/text/"},
         true},
        {"unit", {}, true},
        {"survey/model", {}},
        {"survey/reports", {"survey/model/"}},
        {"survey/files", {"survey/model/", "survey/reports/"}},
        {"survey/figures", {"survey/model/"}},
        {"survey/checks", {"survey/model/", "survey/figures/"}},
        {"survey/comparison", {"survey/model/", "survey/figures/"}},
        {"survey/export",
         {"survey/model/", "survey/files/", "survey/figures/", "survey/checks/",
          "survey/comparison/"}},
        {"survey/window",
         {"survey/model/", "survey/files/", "survey/figures/", "survey/checks/",
          "survey/comparison/", "survey/export/"},
         true},
        {"survey/program",
         {"survey/model/", "survey/files/", "survey/checks/", "survey/comparison/",
          "survey/export/", "survey/window/"},
         true},
    };
    return plan;
}

/// Stands for all headers of the system in the list of the doors.
constexpr std::string_view kSystem = "the system";

/// The files, by the beginning of their paths, that alone include a header that no other may.
struct Door {
    std::string_view file;
    std::string_view header;
};

const std::vector<Door>& Doors()
{
    static const std::vector<Door> doors = {
        {"survey/files/report_file.", kSystem},
        {"survey/files/held_folder.", kSystem},
        {"survey/export/json", "nlohmann/json.hpp"},
        {"survey/export/xlsx", "xlsxwriter.h"},
    };
    return doors;
}

/// The room that a path from the top of the project lies in: the innermost; null for none.
const Room* RoomOf(std::string_view path)
{
    const Room* innermost = nullptr;
    for (const Room& room : Plan())
        if (path.starts_with(std::string(room.folder) + "/") &&
            (innermost == nullptr || innermost->folder.size() < room.folder.size()))
            innermost = &room;
    return innermost;
}

/// A folder as includes give it: "core/" for "src/core".
std::string IncludedAs(std::string_view folder)
{
    if (folder.starts_with("src/")) folder.remove_prefix(4);
    return std::string(folder) + "/";
}

/// The room of a header of the project, as includes give it; null for any other.
const Room* RoomOfInclude(const std::string& header)
{
    const Room* room = RoomOf("src/" + header);
    return room != nullptr ? room : RoomOf(header);
}

bool IsOfTheStandardLibrary(std::string_view header)
{
    return header.find_first_not_of("abcdefghijklmnopqrstuvwxyz_0123456789") ==
           std::string_view::npos;
}

/// The toolkit's and the system's headers: a capital first, or a ".h" that is not the project's.
bool IsOfTheToolkit(std::string_view header, bool quoted)
{
    const bool capital = !header.empty() && header.front() >= 'A' && header.front() <= 'Z';
    return capital || (!quoted && header.ends_with(".h"));
}

/// What a single file may include besides what its room may.
bool IsDoor(const std::string& path, const std::string& header, bool quoted)
{
    return std::any_of(Doors().begin(), Doors().end(), [&](const Door& door) {
        if (!path.starts_with(door.file)) return false;
        return door.header == kSystem ? IsOfTheToolkit(header, quoted) : door.header == header;
    });
}

bool MayIncludeRoom(const Room& room, const Room& other, const std::string& header)
{
    if (&room == &other) return true;
    return std::any_of(room.mayInclude.begin(), room.mayInclude.end(),
                       [&](std::string_view allowed) {
                           return allowed == IncludedAs(other.folder) || allowed == header;
                       });
}

bool MayInclude(const Room& room, const std::string& path, const std::string& header, bool quoted)
{
    if (header.find("..") != std::string::npos || header.starts_with("/")) return false;
    if (const Room* other = RoomOfInclude(header)) return MayIncludeRoom(room, *other, header);
    if (IsDoor(path, header, quoted)) return true;
    if (IsOfTheToolkit(header, quoted)) return room.toolkit;
    if (quoted) return header.find('/') == std::string::npos; // in the file's own folder
    return IsOfTheStandardLibrary(header);
}

/// What a source of that path must not say, one complaint an include.
std::vector<std::string> Complaints(const std::string& path, const std::string& source)
{
    const Room* room = RoomOf(path);
    if (room == nullptr) return {path + " lies in no room of the plan"};

    static const std::regex directive(R"(^\s*#\s*include\s*(.*)$)");
    static const std::regex readable(R"(^(["<])([^">]+)[">].*$)");
    std::vector<std::string> complaints;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (!std::regex_match(line, found, directive)) continue;
        const std::string operand = found[1];
        std::smatch name;
        const bool allowed = std::regex_match(operand, name, readable) &&
                             MayInclude(*room, path, name[2].str(), name[1] == "\"");
        if (!allowed) complaints.push_back(path + " includes " + operand);
    }
    return complaints;
}

std::string Read(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The files below src/, unit/ and survey/ whose names end so, by their paths from the top of the
/// project.
std::vector<std::string> FilesOfTheProject(const std::vector<std::string_view>& endings)
{
    const std::filesystem::path top = TARVEX_SOURCE_FOLDER;
    std::vector<std::string> files;
    for (const std::string_view folder : {"src", "unit", "survey"}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(top / folder)) {
            const std::string name = entry.path().lexically_relative(top).generic_string();
            if (std::any_of(endings.begin(), endings.end(),
                            [&](std::string_view ending) { return name.ends_with(ending); }))
                files.push_back(name);
        }
    }
    return files;
}

/// The folder of each library of the project by its name, from the lists that make them.
const std::map<std::string, std::string>& FoldersOfLibraries()
{
    static const std::map<std::string, std::string> folders = [] {
        static const std::regex made(R"(tarvex_library\(\s*(\w+))");
        const std::filesystem::path top = TARVEX_SOURCE_FOLDER;
        std::map<std::string, std::string> found;
        for (const std::string& list : FilesOfTheProject({"CMakeLists.txt"})) {
            const std::string text = Read(top / list);
            for (auto name = std::sregex_iterator(text.begin(), text.end(), made);
                 name != std::sregex_iterator(); ++name)
                found[(*name)[1].str()] = list;
        }
        return found;
    }();
    return folders;
}

/// Whether something in a room may include something of another.
bool MayLink(const Room& room, const Room& other)
{
    const std::string folder = IncludedAs(other.folder);
    return &room == &other ||
           std::any_of(room.mayInclude.begin(), room.mayInclude.end(),
                       [&](std::string_view allowed) {
                           return allowed == folder ||
                                  (!allowed.ends_with('/') && allowed.starts_with(folder));
                       });
}

/// Libraries of the project that a folder's list of links names and its room may not include.
std::vector<std::string> LinkComplaints(const std::string& path, const std::string& list)
{
    const Room* room = RoomOf(path);
    if (room == nullptr) return {path + " lies in no room of the plan"};

    static const std::regex library(R"(tarvex::(\w+))");
    std::vector<std::string> complaints;
    for (auto found = std::sregex_iterator(list.begin(), list.end(), library);
         found != std::sregex_iterator(); ++found) {
        const auto folder = FoldersOfLibraries().find((*found)[1].str());
        if (folder == FoldersOfLibraries().end()) continue; // a set of options
        const Room* other = RoomOf(folder->second);
        if (other == nullptr || !MayLink(*room, *other))
            complaints.push_back(path + " links " + found->str());
    }
    return complaints;
}

TEST(Architecture, EveryFileIncludesOnlyWhatItsRoomMay)
{
    const std::filesystem::path top = TARVEX_SOURCE_FOLDER;
    for (const std::string& file : FilesOfTheProject({".h", ".cpp", ".in", ".hpp", ".cc"}))
        EXPECT_THAT(Complaints(file, Read(top / file)), ::testing::IsEmpty());
}

TEST(Architecture, EveryFolderLinksOnlyWhatItsRoomMay)
{
    const std::filesystem::path top = TARVEX_SOURCE_FOLDER;
    for (const std::string& list : FilesOfTheProject({"CMakeLists.txt"})) {
        if (list == "src/CMakeLists.txt" || list == "survey/CMakeLists.txt")
            continue; // names all folders, and links none
        EXPECT_THAT(LinkComplaints(list, Read(top / list)), ::testing::IsEmpty());
    }
}

TEST(Architecture, LooksAtTheSourcesThatThereAre)
{
    const std::vector<std::string> files = FilesOfTheProject({".h", ".cpp"});
    for (const std::string file :
         {"src/core/control_panel.h", "src/link/device_link.cpp", "src/blocks/read_block.cpp",
          "src/download/block_download.cpp", "survey/reports/reader.cpp"})
        EXPECT_THAT(files, ::testing::Contains(file));
}

struct Example {
    std::string name;
    std::string path;
    std::string line;
};

struct ExampleName {
    template <class Info>
    std::string operator()(const Info& info) const
    {
        return info.param.name;
    }
};

class BadIncludeTest : public ::testing::TestWithParam<Example>
{
};

TEST_P(BadIncludeTest, IsComplainedOf)
{
    const std::string source = "#pragma once\n\n" + GetParam().line + "\nint x;\n";
    EXPECT_EQ(Complaints(GetParam().path, source).size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Table, BadIncludeTest,
    ::testing::Values(
        Example{"ToolkitInCore", "src/core/control_panel.h", "#include <QString>"},
        Example{"ToolkitInLink", "src/link/device_link.cpp", "#include <QTimer>"},
        Example{"ToolkitInQuotes", "src/core/control_panel.h", "#include \"QString\""},
        Example{"ToolkitByItsModule", "src/blocks/set_all.cpp", "#include <QtCore/QString>"},
        Example{"ToolkitInTheFieldRules", "src/panel/rules/field_rules.cpp",
                "#include <QLineEdit>"},
        Example{"WindowInTheFieldRules", "src/panel/rules/field_rules.cpp",
                "#include \"link/device_link.h\""},
        Example{"SystemInCore", "src/core/record_file.cpp", "#include <unistd.h>"},
        Example{"SystemFolderInLink", "src/link/device_link.cpp", "#include <sys/file.h>"},
        Example{"CoreUpwards", "src/core/start_up.cpp", "#include \"link/device_link.h\""},
        Example{"LinkUpwards", "src/link/device_link.h", "#include \"blocks/read_block.h\""},
        Example{"AnotherCommandsFolder", "src/blocks/read_block.cpp",
                "#include \"download/block_download.h\""},
        Example{"AnotherCommandsFolderBack", "src/download/block_download.cpp",
                "#include \"settings/clock.h\""},
        Example{"SettingsIntoBlocks", "src/settings/clock.cpp", "#include \"blocks/set_block.h\""},
        Example{"DatabaseOnTheLine", "src/database/read_headers.cpp",
                "#include \"link/device_link.h\""},
        Example{"CommandOntoThePanel", "src/blocks/set_all.cpp",
                "#include \"panel/window/main_window.h\""},
        Example{"PanelOntoThePlatform", "src/panel/window/main_window.cpp",
                "#include \"platform/qt_serial_port.h\""},
        Example{"RulesOntoWidgets", "src/panel/rules/field_rules.cpp",
                "#include \"panel/widgets/look.h\""},
        Example{"WidgetsOntoTheWindow", "src/panel/widgets/look.cpp",
                "#include \"panel/window/main_window.h\""},
        Example{"WindowOntoTheForms", "src/panel/window/main_window.cpp",
                "#include \"panel/forms/form6.h\""},
        Example{"SurveyOntoTheForms", "src/panel/survey/form5.cpp",
                "#include \"panel/forms/form6.h\""},
        Example{"PlatformOntoTheLink", "src/platform/qt_serial_port.cpp",
                "#include \"link/device_link.h\""},
        Example{"PlatformsTextsOntoThePlatform", "src/platform/text/qt_text.cpp",
                "#include \"platform/qt_path.h\""},
        Example{"PlatformPastTheInterface", "src/platform/sqlite/rows.cpp",
                "#include \"database/read_headers.h\""},
        Example{"PlatformOntoTheTables", "src/platform/qt_shell.cpp",
                "#include \"platform/sqlite/statement.h\""},
        Example{"PlatformOntoThePanel", "src/platform/qt_shell.cpp",
                "#include \"panel/window/commands.h\""},
        Example{"PanelOntoTheProgram", "src/panel/window/main_window.cpp",
                "#include \"program/program.h\""},
        Example{"UnitIntoTheProgram", "unit/memory.cpp", "#include \"core/block_header.h\""},
        Example{"ProgramIntoTheUnit", "src/core/panel.cpp", "#include \"unit/memory.h\""},
        Example{"ManagerIntoTheSurvey", "survey/reports/reader.cpp", "#include \"core/records.h\""},
        Example{"ManagerIntoTheSurveysWindow", "survey/window/main_window.cpp",
                "#include \"panel/window/main_window.h\""},
        Example{"UnitIntoTheSurvey", "survey/reports/reader.cpp", "#include \"unit/memory.h\""},
        Example{"SurveyIntoTheProgram", "src/download/work_file.cpp",
                "#include \"survey/reports/reader.h\""},
        Example{"ToolkitInTheSurvey", "survey/checks/check.cpp", "#include <QString>"},
        Example{"SystemInTheSurvey", "survey/files/load.cpp", "#include <fcntl.h>"},
        Example{"SurveysLogicOntoItsWindow", "survey/files/load.cpp",
                "#include \"survey/window/main_window.h\""},
        Example{"SurveysModelOntoItsReports", "survey/model/survey.cpp",
                "#include \"survey/reports/reader.h\""},
        Example{"SurveysReaderOntoItsFiles", "survey/reports/reader.cpp",
                "#include \"survey/files/load.h\""},
        Example{"SurveysChecksOntoFiles", "survey/checks/check.cpp",
                "#include \"survey/files/load.h\""},
        Example{"SurveysComparisonOntoChecks", "survey/comparison/compare.cpp",
                "#include \"survey/checks/verdict.h\""},
        Example{"SurveysFilesOntoExports", "survey/files/load.cpp",
                "#include \"survey/export/json.h\""},
        Example{"SystemBesideTheSurveysDoor", "survey/files/load.cpp", "#include <sys/stat.h>"},
        Example{"SpreadsheetsInATable", "survey/export/csv.cpp", "#include <xlsxwriter.h>"},
        Example{"JsonInTheWindow", "survey/window/main_window.cpp", "#include <nlohmann/json.hpp>"},
        Example{"SurveysWindowOntoItsProgram", "survey/window/main_window.cpp",
                "#include \"survey/program/options.h\""},
        Example{"SpreadsheetsInTheReader", "survey/reports/reader.cpp", "#include <xlsxwriter.h>"},
        Example{"ProjectInAngles", "src/core/panel.cpp", "#include <link/device_link.h>"},
        Example{"ARoundaboutPath", "src/core/panel.cpp", "#include \"../link/device_link.h\""},
        Example{"ThroughTheOwnFolder", "src/core/panel.cpp",
                "#include \"core/../link/device_link.h\""},
        Example{"AnAbsolutePath", "src/core/panel.cpp", "#include \"/usr/include/stdio.h\""},
        Example{"OddSpacing", "src/core/panel.cpp", "  #  include<QString>"},
        Example{"ThroughAMacro", "src/core/panel.cpp", "#include HEADER"},
        Example{"ATestsFolder", "src/core/panel.cpp", "#include \"support/logic_test.h\""},
        Example{"ARoomThatIsNotInThePlan", "src/extras/notes.cpp", "#include <string>"}),
    ExampleName());

class GoodIncludeTest : public ::testing::TestWithParam<Example>
{
};

TEST_P(GoodIncludeTest, IsNotComplainedOf)
{
    EXPECT_THAT(Complaints(GetParam().path, GetParam().line), ::testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, GoodIncludeTest,
    ::testing::Values(
        Example{"StandardLibrary", "src/core/control_panel.h", "#include <string_view>"},
        Example{"OwnFolder", "src/core/panel.cpp", "#include \"core/control_panel.h\""},
        Example{"Downwards", "src/blocks/set_all.cpp", "#include \"link/device_link.h\""},
        Example{"ToolkitInTheWindow", "src/panel/window/main_window.h", "#include <QMainWindow>"},
        Example{"SystemInThePlatform", "src/platform/device_lock.cpp", "#include <sys/file.h>"},
        Example{"Interface", "src/platform/sqlite/rows.cpp",
                "#include \"database/record_set.h\" // the handle"},
        Example{"FieldRules", "src/panel/rules/field_rules.cpp",
                "#include \"panel/rules/field_rules.h\""},
        Example{"FormsOnWidgets", "src/panel/forms/form6.cpp", "#include \"panel/widgets/look.h\""},
        Example{"FormsOnTheToolkitsTexts", "src/panel/forms/form6.cpp",
                "#include \"platform/text/qt_text.h\""},
        Example{"WholeProgram", "src/program/main.cpp", "#include \"program/program.h\""},
        Example{"Unit", "unit/memory.cpp", "#include \"unit/memory.h\""},
        Example{"SurveysReader", "survey/reports/reader.cpp",
                "#include \"survey/reports/records.h\""},
        Example{"SurveysWindow", "survey/window/main_window.cpp",
                "#include \"survey/files/load.h\""},
        Example{"SurveysProgram", "survey/program/main.cpp",
                "#include \"survey/window/main_window.h\""},
        Example{"SurveysFiles", "survey/files/report_file.cpp", "#include <fcntl.h>"},
        Example{"SurveysJson", "survey/export/json_values.h", "#include <nlohmann/json.hpp>"},
        Example{"NoInclude", "src/core/panel.cpp", "// #include <QString>"}),
    ExampleName());

TEST(Architecture, ALinkUpwardsIsComplainedOf)
{
    EXPECT_EQ(LinkComplaints("src/core/CMakeLists.txt", "LINKS tarvex::link)").size(), 1U);
    EXPECT_EQ(LinkComplaints("src/blocks/CMakeLists.txt", "tarvex::link tarvex::download").size(),
              1U);
    EXPECT_EQ(LinkComplaints("unit/CMakeLists.txt", "tarvex::core").size(), 1U);
    EXPECT_EQ(LinkComplaints("survey/model/CMakeLists.txt", "tarvex::survey_files").size(), 1U);
    EXPECT_EQ(LinkComplaints("src/panel/forms/CMakeLists.txt", "tarvex::sqlite").size(), 1U);
    EXPECT_THAT(LinkComplaints("src/blocks/CMakeLists.txt", "tarvex::link tarvex::options"),
                ::testing::IsEmpty());
}

} // namespace
} // namespace tarvex::tests
