#include "survey/export/csv.h"
#include "survey/files/load.h"
#include "survey/files/output_file.h"
#include "survey/files/refusal.h"

#include "support/system_limits.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

fs::path KnownReport(const std::string& client)
{
    return fs::path(TARVEX_SURVEY_TESTS "/known_reports") / client;
}

Survey Small()
{
    Survey survey;
    survey.rows = {
        {5, {Reading{1, false}, Reading{-2, false}, Reading{0, true}}, 3},
        {10, {Reading{100, false}, Reading{7, false}, Reading{-33, false}, Reading{-7, false}}, 4}};
    return survey;
}

TEST(CsvOf, WritesNumbersAndLeavesWhatIsMissingEmpty)
{
    EXPECT_EQ(CsvOf(Small(), {',', '.'}), "Depth,A1,B1,A3,B3,A1+A3,(A1-A3)/2,B1+B3,(B1-B3)/2\r\n"
                                          "0.5,1,-2,0,,1,0.5,,\r\n"
                                          "1.0,100,7,-33,-7,67,66.5,0,7.0\r\n");
}

TEST(CsvOf, TakesTheSignsOfOtherLanguages)
{
    EXPECT_THAT(CsvOf(Small(), {';', ','}), HasSubstr("\r\n1,0;100;7;-33;-7;67;66,5;0;7,0\r\n"));
}

class OutputTest : public ::testing::Test
{
protected:
    std::string RefusalOf(const fs::path& path, const std::vector<fs::path>& inputs = {})
    {
        try {
            WriteText(path, inputs, "text");
        } catch (const Refusal& refusal) {
            return refusal.what();
        }
        return "";
    }

    tests::TemporaryFolder folder_;
};

TEST_F(OutputTest, TakesThePlaceOfAnEarlierExport)
{
    tests::WriteFile(folder_ / "out.csv", "old and longer");
    WriteText(folder_ / "out.csv", {}, "new");
    EXPECT_EQ(tests::FileBytes(folder_ / "out.csv"), "new");
    EXPECT_THAT(tests::NamesIn(folder_.Path()), ElementsAre("out.csv"));
}

TEST_F(OutputTest, NeverTakesANameOfTheManagers)
{
    for (const auto* name :
         {"A-B-T-01-dat.dat", "a-b-t-01-NUM.DAT", "datiram.dat", "Intestazione", "tar_vex.mdb"})
        EXPECT_THAT(RefusalOf(folder_ / name), HasSubstr("the manager writes files of that name"));
    EXPECT_THAT(tests::NamesIn(folder_.Path()), ElementsAre());
}

TEST_F(OutputTest, NeverReplacesAReportUnderAnyName)
{
    const auto report = tests::FileBytes(KnownReport("GOOD2   -PENDIO 1-T1  -01-num.dat"));
    tests::WriteFile(folder_ / "renamed.csv", report);
    EXPECT_THAT(RefusalOf(folder_ / "renamed.csv"), HasSubstr("it holds a report"));
    fs::create_hard_link(folder_ / "renamed.csv", folder_ / "other.csv");
    EXPECT_THAT(RefusalOf(folder_ / "other.csv", {folder_ / "renamed.csv"}),
                HasSubstr("it is the report itself"));
    fs::create_symlink("renamed.csv", folder_ / "link.csv");
    EXPECT_THAT(RefusalOf(folder_ / "link.csv"), HasSubstr("it holds a report"));
    EXPECT_EQ(tests::FileBytes(folder_ / "renamed.csv"), report);
}

TEST_F(OutputTest, RefusesADeviceAndAFolder)
{
    EXPECT_THAT(RefusalOf("/dev/null"), HasSubstr("no ordinary file"));
    EXPECT_THAT(RefusalOf(folder_.Path()), HasSubstr("no ordinary file"));
}

TEST_F(OutputTest, SaysWhyAFileCannotBeWritten)
{
    EXPECT_THAT(RefusalOf(folder_ / "missing/out.csv"), HasSubstr("No such file or directory"));
    const tests::FullDisk disk(1000);
    try {
        WriteText(folder_ / "out.csv", {}, std::string(100'000, 'x'));
        ADD_FAILURE() << "it was written";
    } catch (const Refusal& refusal) {
        EXPECT_THAT(refusal.what(), HasSubstr("cannot be written: File too large"));
    }
    EXPECT_THAT(tests::NamesIn(folder_.Path()), ::testing::IsEmpty());
}

TEST_F(OutputTest, LeavesNothingWhenTheWritingFails)
{
    const auto failing = [](const fs::path& part) {
        std::ofstream(part) << "half";
        throw std::runtime_error("no more");
    };
    tests::WriteFile(folder_ / "out.csv", "old");
    EXPECT_THROW(WriteOutput(folder_ / "out.csv", {}, failing), Refusal);
    EXPECT_EQ(tests::FileBytes(folder_ / "out.csv"), "old");
    EXPECT_THAT(tests::NamesIn(folder_.Path()), ElementsAre("out.csv"));
    EXPECT_FALSE(RefusalOf(folder_ / "missing/out.csv").empty());
}

} // namespace
} // namespace tarvex::survey
