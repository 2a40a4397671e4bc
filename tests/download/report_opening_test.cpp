#include "download/report_opening.h"

#include "core/failure.h"
#include "support/logic_test.h"
#include "support/system_limits.h"

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;

/// A folder that all users share, with a link of another user at the name of a report.
class SharedFolderTest : public LogicTest
{
protected:
    SharedFolderTest()
    {
        fs::create_directory(shared);
        fs::permissions(shared, fs::perms::all | fs::perms::sticky_bit);
        WriteFile(victim, "kept");
        fs::permissions(victim, fs::perms::all);
        fs::permissions(folder.Path(), fs::perms::all);
    }

    static bool Opens(const ReportFile& report)
    {
        try {
            RecordFile file(4);
            OpenReport(file, report);
            file.Put(1, std::array<char, 4>{'d', 'a', 't', 'a'});
            return true;
        } catch (const RunTimeFailure&) {
            return false;
        }
    }

    const fs::path shared = folder / "shared";
    const fs::path victim = folder / "victim";
};

TEST_F(SharedFolderTest, ALinkOfAnotherUserIsNotWrittenThrough)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    fs::create_symlink(victim, shared / "datiram.dat");
    EXPECT_TRUE(HoldsForAnyUser([&] { return !Opens(WorkFile(shared)); }));
    EXPECT_EQ(FileBytes(victim), "kept");
}

TEST_F(SharedFolderTest, ALinkOfAnotherUserThatLeadsNowhereMakesNoFile)
{
    SKIP_WHERE_FOLDERS_HAVE_NO_MODE();
    fs::create_symlink(folder / "made", shared / "datiram.dat");
    EXPECT_TRUE(HoldsForAnyUser([&] { return !Opens(WorkFile(shared)); }));
    EXPECT_FALSE(fs::exists(folder / "made"));
}

TEST_F(SharedFolderTest, AFileOfOnesOwnIsMadeAndTakenAgain)
{
    EXPECT_TRUE(
        HoldsForAnyUser([&] { return Opens(WorkFile(shared)) && Opens(WorkFile(shared)); }));
    EXPECT_EQ(FileBytes(shared / "datiram.dat"), "data");
}

TEST_F(SharedFolderTest, ALinkAboveTheFolderIsTheOperatorsChoice)
{
    SKIP_WHERE_NO_LINK_IS_MADE();
    fs::create_directory_symlink(shared, folder / "reports");
    EXPECT_TRUE(Opens(WorkFile(folder / "reports")));
    EXPECT_EQ(FileBytes(shared / "datiram.dat"), "data");
}

} // namespace
} // namespace tarvex::tests
