#include "survey/files/listing.h"

#include "support/ordinary_user.h"
#include "survey/downloads.h"
#include "survey/files/folder_scan.h"
#include "survey/files/listing_text.h"
#include "survey/files/load.h"
#include "survey/files/refusal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tarvex::survey
{
namespace
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

class ListingTest : public ::testing::Test
{
protected:
    fs::path Download(const std::string& fill)
    {
        return tests::Download(folder_.Path(), "1:depth=1," + fill);
    }

    tests::TemporaryFolder folder_;
};

TEST_F(ListingTest, GroupsByClientSiteAndTubeInOrderOfReadout)
{
    Download("client=B,nlet=10");
    Download("client=B,nlet=9");
    Download("client=A,tube=T2,nlet=01,date=010126");
    Download("client=A,tube=T1,nlet=02");
    EXPECT_EQ(Download("client=A,site=X,nlet=01").filename(), "A       -X       -T1  -01-dat.dat");

    std::vector<std::string> order;
    for (const auto& listed : ListFolder(folder_.Path()))
        order.push_back(listed.head.client + listed.head.site + listed.head.tube + " " +
                        listed.head.readout);
    EXPECT_THAT(order, ElementsAre("APENDIO 1T1 02", "APENDIO 1T2 01", "AXT1 01", "BPENDIO 1T1 9",
                                   "BPENDIO 1T1 10"));
}

TEST_F(ListingTest, GoesOnWhereAFolderGoesWhileItIsRead)
{
    constexpr int kReports = 20;
    const auto numbered = [&](const char* name, int number) {
        return folder_ / (name + std::to_string(number));
    };
    const auto report = Download("nlet=01");
    for (int number = 0; number < kReports; ++number) {
        fs::create_directory(numbered("dati", number));
        fs::copy_file(report, numbered("dati", number) / report.filename());
    }
    const int passing = 2 * static_cast<int>(kProgressSteps);
    for (int number = 0; number < passing; ++number)
        fs::create_directory(numbered("passing", number));
    const auto found = FindReports(folder_.Path(), [&](std::size_t) {
        for (int number = 0; number < passing; ++number)
            fs::remove(numbered("passing", number));
    });
    EXPECT_EQ(found.size(), kReports + 1U);
}

TEST_F(ListingTest, PrintsEachGroupOnce)
{
    Download("nlet=01");
    Download("nlet=02");
    EXPECT_EQ(TextOf(ListFolder(folder_.Path())),
              "COMUNE\n  PENDIO 1\n    T1\n"
              "      01  14/04/26  10:00:00  001.0 m  " +
                  (folder_ / "COMUNE  -PENDIO 1-T1  -01-dat.dat").string() +
                  "\n"
                  "      02  14/04/26  10:00:00  001.0 m  " +
                  (folder_ / "COMUNE  -PENDIO 1-T1  -02-dat.dat").string() + "\n");
}

TEST_F(ListingTest, TakesTheNameWhereTheHeadReportIsMissing)
{
    fs::remove(Download("client=A-B,nlet=07"));
    const auto listed = ListFolder(folder_.Path());
    ASSERT_THAT(listed, SizeIs(1));
    EXPECT_FALSE(listed[0].hasHead);
    EXPECT_EQ(listed[0].head.client, "A-B");
    EXPECT_EQ(listed[0].head.readout, "07");
}

TEST_F(ListingTest, LooksIntoFoldersButFollowsNoLinkToOne)
{
    fs::create_directories(folder_ / "a/b");
    tests::Download(folder_ / "a/b", "1:depth=1");
    fs::create_directory_symlink("..", folder_ / "a/up");
    EXPECT_THAT(ListFolder(folder_.Path()), SizeIs(1));
}

TEST_F(ListingTest, ListsOtherSpellingsAndPassesOverOtherFiles)
{
    const auto head = Download("nlet=01");
    fs::rename(head, folder_ / "COMUNE  -PENDIO 1-T1  -01-DAT.DAT");
    tests::WriteFile(folder_ / "notes.txt", "hello");
    const auto listed = ListFolder(folder_.Path());
    ASSERT_THAT(listed, SizeIs(1));
    EXPECT_TRUE(listed[0].hasData);
    EXPECT_TRUE(listed[0].hasHead);
}

TEST_F(ListingTest, SaysHowFarItIsWhileItReadsManyFiles)
{
    const auto head = Download("nlet=01");
    for (std::size_t number = 0; number < 2 * kProgressSteps; ++number)
        fs::copy_file(head, folder_ / (std::to_string(number) + "-dat.dat"));
    std::vector<std::size_t> counts;
    const auto listed =
        ListFolder(folder_.Path(), [&](std::size_t count) { counts.push_back(count); });
    EXPECT_THAT(listed, SizeIs(2 * kProgressSteps + 1));
    EXPECT_THAT(counts, ::testing::SizeIs(::testing::Ge(4U)))
        << "while it looks and while it reads";
    EXPECT_TRUE(std::ranges::is_sorted(counts));
}

TEST_F(ListingTest, RefusesAPathThatIsNoFolder)
{
    EXPECT_THROW(ListFolder(folder_ / "nothing"), Refusal);
    tests::WriteFile(folder_ / "file", "");
    EXPECT_THROW(ListFolder(folder_ / "file"), Refusal);
}

TEST_F(ListingTest, RefusesAFolderThatMayNotBeReadAndPassesOverOneWithin)
{
    const auto locked = folder_ / "locked";
    fs::create_directory(locked);
    fs::permissions(locked, fs::perms::none);
    {
        const tests::OrdinaryUser user(folder_.Path());
        EXPECT_NO_THROW(ListFolder(folder_.Path()));
        try {
            ListFolder(locked);
            ADD_FAILURE() << "it was listed";
        } catch (const Refusal& refusal) {
            EXPECT_THAT(refusal.what(), ::testing::HasSubstr("cannot be listed: Permission"));
        }
    }
    fs::permissions(locked, fs::perms::owner_all);
}

} // namespace
} // namespace tarvex::survey
