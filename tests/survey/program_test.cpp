#include "survey/running.h"

#include "support/temporary_folder.h"
#include "survey/downloads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class SurveyProgram : public ::testing::Test
{
protected:
    TemporaryFolder folder_;
    const std::string head_ = Download(folder_.Path(), "1:depth=20");
};

TEST_F(SurveyProgram, ShowsASurveyOnTheStandardOutput)
{
    const auto run = RunSurvey({"show", head_});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("Client       COMUNE"));
    EXPECT_THAT(run.output, HasSubstr("\n   20.0 "));
    EXPECT_THAT(run.errors, IsEmpty());
}

TEST_F(SurveyProgram, ShowsJson)
{
    const auto run = RunSurvey({"show", "--json", head_});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("{\n"));
}

TEST_F(SurveyProgram, RefusesAFileThatIsNoReportWithOneSentence)
{
    WriteFile(folder_ / "notes.txt", "hello");
    const auto run = RunSurvey({"show", folder_ / "notes.txt"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.output, IsEmpty());
    EXPECT_THAT(run.errors, StartsWith("tarvex-survey: "));
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
}

TEST_F(SurveyProgram, RefusesAWrongCommandLine)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"show"}, {"frobnicate"}, {"show", "--nothing", head_}}) {
        const auto run = RunSurvey(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_FALSE(run.errors.empty());
    }
}

TEST_F(SurveyProgram, TellsItsVersion)
{
    const auto run = RunSurvey({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("tarvex-survey 1.1"));
}

TEST_F(SurveyProgram, SaysWhenItsOutputCannotBeWritten)
{
    EXPECT_NE(std::system((std::string(TARVEX_SURVEY_PROGRAM) + " show '" + head_ +
                           "' >/dev/full 2>/dev/null")
                              .c_str()),
              0);
}

} // namespace
} // namespace tarvex::tests
