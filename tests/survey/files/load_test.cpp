#include "survey/files/load.h"

#include "survey/downloads.h"
#include "survey/files/refusal.h"
#include "survey/files/report_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class LoadTest : public ::testing::Test
{
protected:
    std::string RefusalOf(const fs::path& path)
    {
        try {
            Load(path);
        } catch (const Refusal& refusal) {
            return refusal.what();
        }
        return "";
    }

    tests::TemporaryFolder folder_;
    const fs::path head_ = tests::Download(folder_.Path(), "1:depth=20,guides=4");
    const fs::path data_ = tests::DataReportOf(head_);
};

TEST_F(LoadTest, FindsTheOtherFileFromEither)
{
    for (const auto& path : {head_, data_}) {
        const auto survey = Load(path);
        ASSERT_TRUE(survey.head);
        EXPECT_EQ(survey.head->client, "COMUNE");
        EXPECT_THAT(survey.rows, SizeIs(40));
        EXPECT_THAT(survey.files, ElementsAre(head_.string(), data_.string()));
        EXPECT_THAT(survey.anomalies, IsEmpty());
        EXPECT_TRUE(HasFourGuides(survey));
        EXPECT_FALSE(survey.unfinished);
    }
}

TEST_F(LoadTest, FindsTheOtherFileInTheWorkingFolder)
{
    const auto before = fs::current_path();
    fs::current_path(folder_.Path());
    EXPECT_THAT(Load(data_.filename()).files, SizeIs(2));
    fs::current_path(before);
}

TEST_F(LoadTest, FindsTheOtherFileInAnyCase)
{
    const auto capitals = folder_ / "COMUNE  -PENDIO 1-T1  -01-DAT.DAT";
    const auto mixed = folder_ / "Comune  -pendio 1-t1  -01-Num.dat";
    fs::rename(head_, capitals);
    fs::rename(data_, mixed);
    EXPECT_THAT(Load(capitals).rows, SizeIs(40));
    EXPECT_TRUE(Load(mixed).head);
}

TEST_F(LoadTest, TakesADataReportAlone)
{
    fs::remove(head_);
    const auto survey = Load(data_);
    EXPECT_FALSE(survey.head);
    EXPECT_EQ(StepOf(survey), 5);
    EXPECT_EQ(DepthOf(survey), 200);
    EXPECT_TRUE(HasFourGuides(survey));
    EXPECT_THAT(survey.anomalies, IsEmpty());
}

TEST_F(LoadTest, ReportsThatAHeadReportIsAlone)
{
    fs::remove(data_);
    const auto survey = Load(head_);
    EXPECT_TRUE(survey.head);
    ASSERT_THAT(survey.anomalies, SizeIs(1));
    EXPECT_THAT(survey.anomalies[0].text, HasSubstr("missing"));
    EXPECT_FALSE(survey.anomalies[0].harmless);
}

TEST_F(LoadTest, TakesTheWorkFileOfABrokenDownload)
{
    tests::TemporaryFolder broken;
    // Ten wakes for the header, then one a depth: the unit falls silent at the sixth.
    const auto head = tests::Download(broken.Path(), "1:depth=20", "silent@wake16+");
    EXPECT_FALSE(fs::exists(tests::DataReportOf(head)));
    const auto survey = Load(broken / "datiram.dat");
    EXPECT_TRUE(survey.unfinished);
    EXPECT_THAT(survey.rows, SizeIs(5));
    EXPECT_EQ(survey.rows.front().depth, 180);
    EXPECT_EQ(survey.rows.back().depth, 200);
    EXPECT_THAT(survey.anomalies, IsEmpty());
}

TEST_F(LoadTest, KeepsTheDepthsAroundAPageThatWasSkipped)
{
    tests::TemporaryFolder gap;
    const auto survey = Load(tests::Download(gap.Path(), "1:depth=20", "wrong@wake15"));
    EXPECT_THAT(survey.rows, SizeIs(39));
    EXPECT_THAT(survey.anomalies, IsEmpty());
}

TEST_F(LoadTest, ReportsAPartnerThatIsNoReport)
{
    tests::WriteFile(head_, "something else");
    const auto survey = Load(data_);
    EXPECT_FALSE(survey.head);
    ASSERT_THAT(survey.anomalies, SizeIs(1));
    EXPECT_EQ(survey.anomalies[0].file, head_.filename().string());
}

TEST_F(LoadTest, ReportsAPartnerOfTheOtherKind)
{
    fs::copy_file(data_, head_, fs::copy_options::overwrite_existing);
    EXPECT_THAT(Load(data_).anomalies, SizeIs(1));
}

TEST_F(LoadTest, RefusesWithOneSentenceThatNamesTheFile)
{
    tests::WriteFile(folder_ / "notes.txt", "hello");
    EXPECT_EQ(RefusalOf(folder_ / "notes.txt"),
              (folder_ / "notes.txt").string() +
                  " is no report: it holds neither the lines of a head report nor the rows of a "
                  "data report");
    EXPECT_THAT(RefusalOf(folder_ / "nothing.dat"), HasSubstr("No such file"));
    EXPECT_THAT(RefusalOf(folder_.Path()), HasSubstr("no ordinary file"));
}

TEST_F(LoadTest, NeverWaitsAtAPipeNorReadsADevice)
{
    const auto pipe = folder_ / "pipe-num.dat";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_THAT(RefusalOf(pipe), HasSubstr("no ordinary file"));
    fs::create_symlink("/dev/zero", folder_ / "zero-num.dat");
    EXPECT_THAT(RefusalOf(folder_ / "zero-num.dat"), HasSubstr("no ordinary file"));
    fs::create_symlink("self-num.dat", folder_ / "self-num.dat");
    EXPECT_FALSE(RefusalOf(folder_ / "self-num.dat").empty());
    // A partner may be a trap too.
    fs::remove(head_);
    ASSERT_EQ(::mkfifo(head_.c_str(), 0600), 0);
    EXPECT_THAT(Load(data_).anomalies, SizeIs(1));
}

TEST_F(LoadTest, RefusesAFileOfTenGigabytesUnread)
{
    const auto huge = folder_ / "huge-num.dat";
    tests::WriteFile(huge, "");
    fs::resize_file(huge, std::uintmax_t{10} << 30U); // a hole: it takes no room
    EXPECT_THAT(RefusalOf(huge), HasSubstr("longer than any report"));
}

TEST_F(LoadTest, RefusesAFileThatSaysItIsEmptyAndGoesOn)
{
    // The kernel's own files have a length of 0.
    EXPECT_THAT(ReadBytes("/proc/self/maps").refusal, IsEmpty());
    EXPECT_FALSE(ReadBytes("/proc/self/maps").bytes.empty());
    EXPECT_THAT(RefusalOf("/proc/self/maps"), HasSubstr("is no report"));
}

TEST_F(LoadTest, ShowsANameWithoutItsControlCharacters)
{
    const auto odd = folder_ / "a\x1B[31m.dat";
    tests::WriteFile(odd, "hello");
    EXPECT_THAT(RefusalOf(odd), HasSubstr("a\uFFFD[31m.dat is no report"));
}

TEST_F(LoadTest, ChangesNoFile)
{
    const auto before = tests::FileBytes(head_) + tests::FileBytes(data_);
    const auto names = tests::NamesIn(folder_.Path());
    Load(head_);
    EXPECT_EQ(tests::FileBytes(head_) + tests::FileBytes(data_), before);
    EXPECT_EQ(tests::NamesIn(folder_.Path()), names);
}

} // namespace
} // namespace tarvex::survey
