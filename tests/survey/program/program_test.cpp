#include "survey/program/running.h"

#include "support/temporary_folder.h"
#include "survey/downloads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

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

TEST_F(SurveyProgram, ChecksOneSurveyByOneLineFirst)
{
    const auto good = RunSurvey({"check", head_});
    EXPECT_EQ(good.status, 0);
    EXPECT_THAT(good.output, StartsWith("good\n"));
    const auto bad = RunSurvey({"check", Download(folder_.Path(), "4:depth=20,spike=12.5")});
    EXPECT_EQ(bad.status, 1);
    EXPECT_THAT(bad.output, StartsWith("read again at 12.5 m (A)\n"));
}

TEST_F(SurveyProgram, ChecksByOtherLimits)
{
    const std::string spike = Download(folder_.Path(), "4:depth=20,spike=12.5");
    EXPECT_EQ(RunSurvey({"check", "--spike-floor", "500", "--outlier-floor", "500", spike}).status,
              0);
    EXPECT_EQ(RunSurvey({"check", "--spike-floor", "-1", spike}).status, 2);
    EXPECT_THAT(RunSurvey({"check", "--help"}).output, HasSubstr("(100: a joint"));
}

TEST_F(SurveyProgram, ComparesReadingsOfOneTube)
{
    const std::string later = Download(folder_.Path(), "1:depth=20,nlet=02,moved=1");
    const auto run = RunSurvey({"compare", head_, later, "--constant", "20000", "--base", "0.5"});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("sum in mm"));
    EXPECT_EQ(RunSurvey({"compare", head_, later, "--constant", "20000"}).status, 2);
    EXPECT_EQ(RunSurvey({"compare", head_}).status, 2);
}

TEST_F(SurveyProgram, RefusesToCompareAnotherTube)
{
    const auto run = RunSurvey({"compare", head_, Download(folder_.Path(), "1:depth=20,tube=T9")});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("is of another tube: the tube is"));
}

TEST_F(SurveyProgram, ExportsTablesWithTheSignsThatAreChosen)
{
    const std::string path = folder_ / "out.csv";
    EXPECT_EQ(
        RunSurvey({"export", head_, "--csv", path, "--separator", ";", "--decimal", ","}).status,
        0);
    EXPECT_THAT(FileBytes(path), HasSubstr("\r\n20,0;"));
    EXPECT_THAT(RunSurvey({"export", head_, "--csv", "-"}).output, StartsWith("Depth,A1,"));
    EXPECT_EQ(RunSurvey({"export", head_, "--csv", "-", "--separator", "."}).status, 2);
    EXPECT_EQ(RunSurvey({"export", head_}).status, 2);
}

TEST_F(SurveyProgram, ExportsTablesWithTheSignsOfTheDesktop)
{
    const std::string made =
        "localedef -c -i de_DE -f UTF-8 '" + (folder_ / "de_DE.UTF-8").native() + "' 2>/dev/null";
    ASSERT_EQ(std::system(made.c_str()), 0);
    ::setenv("LOCPATH", folder_.Path().c_str(), 1);
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    const auto german = RunSurvey({"export", head_, "--csv", "-"});
    ::setenv("LC_ALL", "xx_XX.UTF-8", 1); // one that is not installed
    const auto unknown = RunSurvey({"export", head_, "--csv", "-"});
    ::unsetenv("LC_ALL");
    ::unsetenv("LOCPATH");
    EXPECT_THAT(german.output, HasSubstr("\r\n20,0;"));
    EXPECT_THAT(unknown.output, HasSubstr("\r\n20.0,"));
}

TEST_F(SurveyProgram, ExportsASpreadsheetWithNumbersAsNumbers)
{
    const std::string path = folder_ / "out.xlsx";
    EXPECT_EQ(RunSurvey({"export", head_, "--xlsx", path}).status, 0);
    const auto unpacked = folder_ / "sheet.xml";
    const auto command =
        "unzip -p '" + path + "' xl/worksheets/sheet1.xml > '" + unpacked.string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_THAT(FileBytes(unpacked), HasSubstr("<c r=\"A41\"><v>20</v></c>"));
}

TEST_F(SurveyProgram, ExportsPicturesWithoutADisplay)
{
    const std::string later = Download(folder_.Path(), "1:depth=20,nlet=02,moved=1");
    const std::string svg = folder_ / "out.svg";
    const std::string png = folder_ / "out.png";
    const auto run = RunSurvey({"export", later, "--base", head_, "--svg", svg, "--png", png});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(FileBytes(svg), HasSubstr("A: sum of change, counts"));
    EXPECT_THAT(FileBytes(svg), HasSubstr("(B1-B3)/2"));
    EXPECT_THAT(FileBytes(png), StartsWith("\x89PNG"));
}

TEST_F(SurveyProgram, PutsOneSheetIntoAPdf)
{
    const std::string pdf = folder_ / "out.pdf";
    const std::string spike = Download(folder_.Path(), "4:depth=100,spike=12.5,guides=4");
    ASSERT_EQ(RunSurvey({"export", spike, "--pdf", pdf, "--remark", "Rain since Monday"}).status,
              0);
    const auto text = folder_ / "out.txt";
    ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + text.string() + "'").c_str()), 0);
    const auto words = FileBytes(text);
    EXPECT_THAT(words, HasSubstr("Verdict: read again at 12.5 m (A"));
    EXPECT_THAT(words, HasSubstr("Remark: Rain since Monday"));
    EXPECT_THAT(words, HasSubstr("SHA-256 "));
    EXPECT_THAT(words, HasSubstr("100.0 "));
    EXPECT_EQ(std::count(words.begin(), words.end(), '\f'), 1) << "one sheet";
}

TEST_F(SurveyProgram, TakesNamesThatAreNoUtf8)
{
    const auto nameless = folder_ / "Gef\xE4lle";
    std::filesystem::create_directory(nameless);
    const std::string report = Download(nameless, "1:depth=20");
    const std::string base = nameless / "basis\xFC.dat";
    std::filesystem::copy_file(DataReportOf(report), base);
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"show", report},
                                                      {"show", "--json", report},
                                                      {"check", "--json", base},
                                                      {"check", report, base},
                                                      {"compare", report, report},
                                                      {"compare", "--json", report, report},
                                                      {"list", nameless},
                                                      {"list", "--json", nameless}})
        EXPECT_EQ(RunSurvey(arguments).status, 0) << arguments.front();
    EXPECT_THAT(RunSurvey({"list", nameless}).output, HasSubstr("Gef\uFFFDlle/"));
    for (const char* form : {"csv", "json", "xlsx", "svg", "png", "pdf"}) {
        const std::string path = nameless / (std::string("\xE4.") + form);
        const auto run = RunSurvey({"export", report, std::string("--") + form, path});
        EXPECT_EQ(run.status, 0) << run.errors;
        EXPECT_FALSE(FileBytes(path).empty()) << form;
    }
}

TEST_F(SurveyProgram, RefusesAnExportIntoAFolderThatIsGone)
{
    for (const char* form : {"csv", "json", "xlsx", "svg", "png", "pdf"}) {
        const auto run = RunSurvey({"export", head_, std::string("--") + form,
                                    folder_ / (std::string("gone/out.") + form)});
        EXPECT_EQ(run.status, 2) << form;
        EXPECT_THAT(run.errors, HasSubstr("cannot be written: ")) << form;
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    }
}

TEST_F(SurveyProgram, RefusesABaseOfAnotherTube)
{
    const std::string other = Download(folder_.Path(), "2:depth=20,tube=T9");
    const auto run = RunSurvey({"export", head_, "--base", other, "--png", folder_ / "out.png"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("is of another tube"));
}

TEST_F(SurveyProgram, NeverExportsOverAReport)
{
    const auto before = FileBytes(head_);
    EXPECT_EQ(RunSurvey({"export", head_, "--csv", head_}).status, 2);
    EXPECT_EQ(FileBytes(head_), before);
}

TEST_F(SurveyProgram, GoesOnAfterAFileThatCannotBeUsed)
{
    WriteFile(folder_ / "notes.txt", "hello");
    const std::string notes = folder_ / "notes.txt";
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"show", notes, head_},
          {"check", notes, head_},
          {"compare", head_, notes, head_}}) {
        const auto run = RunSurvey(arguments);
        EXPECT_EQ(run.status, 2) << arguments.front();
        EXPECT_THAT(run.output, HasSubstr(head_)) << arguments.front();
        EXPECT_THAT(run.errors, HasSubstr("notes.txt is no report")) << arguments.front();
        EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    }
}

TEST_F(SurveyProgram, PutsNoPictureOnTheStandardOutput)
{
    for (const char* form : {"xlsx", "svg", "png", "pdf"}) {
        const auto run = RunSurvey({"export", head_, std::string("--") + form, "-"});
        EXPECT_EQ(run.status, 2) << form;
        EXPECT_THAT(run.errors, HasSubstr("needs the name of a file")) << form;
        EXPECT_FALSE(std::filesystem::remove("-")) << form;
    }
}

TEST_F(SurveyProgram, TakesNoNumberThatIsNone)
{
    for (const char* number : {"nan", "-nan", "inf", "-1", "1e10", "many"}) {
        EXPECT_EQ(RunSurvey({"check", head_, "--deviation", number}).status, 2) << number;
        const auto run =
            RunSurvey({"compare", head_, head_, "--constant", "20000", "--base", number});
        EXPECT_EQ(run.status, 2) << number;
    }
}

TEST_F(SurveyProgram, ListsTheSurveysOfAFolder)
{
    const auto run = RunSurvey({"list", folder_.Path()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("COMUNE\n  PENDIO 1\n    T1\n"));
    EXPECT_THAT(RunSurvey({"list", "--json", folder_.Path()}).output, StartsWith("[\n"));
    EXPECT_EQ(RunSurvey({"list", folder_ / "nothing"}).status, 2);
}

TEST_F(SurveyProgram, TakesSeveralPathsForItsWindow)
{
    const auto shown = RunSurvey({head_, DataReportOf(head_), folder_.Path()});
    EXPECT_EQ(shown.status, 2);
    EXPECT_THAT(shown.errors, HasSubstr("there is no display")) << "all else is as it is to be";
    EXPECT_THAT(RunSurvey({head_, folder_ / "nothing"}).errors, HasSubstr("nothing is not there"));
    EXPECT_THAT(RunSurvey({"--help"}).output, HasSubstr("PATH"));
}

TEST_F(SurveyProgram, PrintsItsVersion)
{
    const auto run = RunSurvey({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("tarvex-survey 1.1"));
    EXPECT_THAT(run.output, HasSubstr("under the GNU General Public Licence, version 3 or later"));
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
