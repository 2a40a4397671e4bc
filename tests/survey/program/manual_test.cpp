// What docs/survey.md prints, held against the program.
#include "documents/page.h"
#include "survey/downloads.h"
#include "survey/program/running.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

namespace tarvex::tests
{
namespace
{

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// All that the help of the program and of its commands says, without the breaks of its lines.
std::string AllHelp()
{
    std::string help = RunSurvey({"--help"}).output;
    for (const char* command : {"show", "check", "compare", "export", "list"})
        help += RunSurvey({command, "--help"}).output;
    return std::regex_replace(help, std::regex("\\s+"), " ");
}

std::string WholePage()
{
    std::ostringstream text;
    text << std::ifstream(TARVEX_DOCS "/survey.md").rdbuf();
    return text.str();
}

TEST(SurveyManual, CommandsRunAsTheyArePrinted)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "dati");
    for (const char* readout : {"01", "03"})
        Download(folder / "dati", std::string("1:depth=20,client=DELVALLE,site=FRANA 02,tube=T01,"
                                              "nlet=") +
                                      readout);
    const auto commands = Page("survey.md").Example("commands");
    EXPECT_THAT(commands, SizeIs(6));
    for (const auto& command : commands) {
        std::string line = "cd '" + folder.Path().native() + "' && PATH=\"$(dirname '" +
                           TARVEX_SURVEY_PROGRAM + "'):$PATH\" && env -u DISPLAY bash -c '";
        line += std::regex_replace(command, std::regex("'"), "'\\''") + "' >out 2>err";
        EXPECT_EQ(std::system(line.c_str()), 0) << command << "\n" << FileBytes(folder / "err");
        EXPECT_THAT(FileBytes(folder / "err"), IsEmpty()) << command;
    }
    EXPECT_FALSE(FileBytes(folder / "sheet.pdf").empty());
    EXPECT_THAT(FileBytes(folder / "out"), HasSubstr("\r\n20,0;"));
}

TEST(SurveyManual, OptionsAreThoseOfTheProgram)
{
    const auto help = AllHelp();
    const auto page = WholePage();
    int options = 0;
    const std::regex option("`(--[a-z-]+)");
    for (auto found = std::sregex_iterator(page.begin(), page.end(), option);
         found != std::sregex_iterator(); ++found, ++options)
        EXPECT_THAT(help, HasSubstr((*found)[1].str() + " ")) << "of the page";
    EXPECT_GT(options, 20);
}

TEST(SurveyManual, LimitsAreThoseOfTheProgramWithTheirReasons)
{
    const auto help = AllHelp();
    const auto page = WholePage();
    const std::regex row("\\| `(--[a-z-]+)` \\| ([0-9.]+)[^|]* \\| ([^|]+) \\|");
    int rows = 0;
    for (auto found = std::sregex_iterator(page.begin(), page.end(), row);
         found != std::sregex_iterator(); ++found, ++rows)
        EXPECT_THAT(help, HasSubstr("(" + (*found)[2].str() + ": " + (*found)[3].str() + ")"))
            << (*found)[1];
    EXPECT_EQ(rows, 10);
}

} // namespace
} // namespace tarvex::tests
