#include "architecture/include_rule.h"
#include "architecture/link_rule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace tarvex::tests
{
namespace
{

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
