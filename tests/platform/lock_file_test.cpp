#include "platform/lock_file.h"

#include "platform/other_program.h"
#include "support/ordinary_user.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using platform::HoldByLockFile;
using platform::LockFilesOf;
using platform::LockFolders;
using platform::ProcessNamedBy;
using platform::RemoveLockFiles;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

struct Content {
    const char* form;
    std::string bytes;
    int process;
};

class LockFileContent : public ::testing::TestWithParam<Content>
{
};

TEST_P(LockFileContent, NamesAProcess)
{
    EXPECT_EQ(ProcessNamedBy(GetParam().bytes), GetParam().process);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, LockFileContent,
    ::testing::Values(Content{"BareNumber", "1234", 1234}, Content{"BareLine", "1234\n", 1234},
                      Content{"TenPlaces", "      1234\n", 1234},
                      Content{"NameAndUser", "1234 minicom root\n", 1234},
                      Content{"ThreeLines", "1234\nother\nmachine\n", 1234},
                      Content{"FourDigitsAndNothingElse", "4711", 4711},
                      Content{"FourBytesOfANumber", std::string("\xD2\x04\0\0", 4), 1234},
                      Content{"Empty", "", 0}, Content{"Blanks", "   ", 0},
                      Content{"Words", "minicom 1234\n", 0}, Content{"Negative", "-5\n", 0},
                      Content{"TooLarge", "99999999999999\n", 0},
                      Content{"FourBytesOfNoProcess", std::string("\xFF\xFF\xFF\xFF", 4), 0}),
    [](const auto& row) { return row.param.form; });

/// A folder of lock files, and an adapter with a second name of its own.
class LockFile : public ::testing::Test
{
protected:
    LockFile()
    {
        fs::create_directory(folder / "by-id");
        WriteFile(adapter, "");
        fs::create_symlink(adapter, folder / "by-id" / "usb-Adapter_A1");
        fs::create_symlink(folder / "ttyUSB1", folder / "by-id" / "usb-Adapter_B2");
    }

    static void MakeOlder(const fs::path& file, std::chrono::milliseconds by)
    {
        fs::last_write_time(file, fs::last_write_time(file) - by);
    }

    fs::path Leave(const std::string& name, const std::string& content) const
    {
        WriteFile(folder / name, content);
        return folder / name;
    }

    TemporaryFolder folder;
    LockFolders folders{folder.Path(), {folder / "by-id", folder / "by-path"}};
    fs::path adapter = fs::canonical(folder.Path()) / "ttyUSB0";
};

TEST_F(LockFile, IsFoundUnderEachNameOfTheDevice)
{
    const fs::path plain = Leave("LCK..ttyUSB0", "1");
    const fs::path second = Leave("LCK..usb-Adapter_A1", "1");
    Leave("LCK..usb-Adapter_B2", "1");
    Leave("LCK..ttyUSB1", "1");
    EXPECT_THAT(LockFilesOf(adapter, folders), UnorderedElementsAre(plain, second));
}

TEST_F(LockFile, IsFoundByTheWholeNameBelowTheDeviceFolder)
{
    const fs::path whole = Leave("LCK..pts_4711", "1");
    const fs::path last = Leave("LCK..4711", "1");
    EXPECT_THAT(LockFilesOf("/dev/pts/4711", folders), UnorderedElementsAre(whole, last));
}

TEST_F(LockFile, OfALivingProcessKeepsTheDeviceAndStays)
{
    const OtherProgram other("/dev/null", Opens);
    const fs::path file = Leave("LCK..ttyUSB0", std::to_string(other.Process()) + "\n");
    const auto hold = HoldByLockFile(adapter, folders);
    ASSERT_TRUE(hold);
    EXPECT_EQ(hold->process, other.Process());
    EXPECT_EQ(hold->file, file);
    EXPECT_FALSE(RemoveLockFiles(adapter, folders));
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(LockFile, OfAnotherUsersLivingProcessKeepsTheDevice)
{
    Leave("LCK..ttyUSB0", "1\n");
    const OrdinaryUser user(folder.Path());
    EXPECT_TRUE(HoldByLockFile(adapter, folders));
}

TEST_F(LockFile, ThatNamesNobodyKeepsTheDeviceSinceNobodyKnows)
{
    const fs::path file = Leave("LCK..ttyUSB0", "minicom\n");
    MakeOlder(file, 24h);
    const auto hold = HoldByLockFile(adapter, folders);
    ASSERT_TRUE(hold);
    EXPECT_EQ(hold->process, 0);
    EXPECT_FALSE(RemoveLockFiles(adapter, folders));
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(LockFile, ThatIsEmptyKeepsTheDeviceWhileItsNumberMayYetBeWritten)
{
    const fs::path file = Leave("LCK..ttyUSB0", "");
    EXPECT_TRUE(HoldByLockFile(adapter, folders));
    EXPECT_FALSE(RemoveLockFiles(adapter, folders));
    EXPECT_TRUE(fs::exists(file));
}

TEST_F(LockFile, ThatStayedEmptyWasLeftByAKilledProgramAndIsTakenAway)
{
    const fs::path file = Leave("LCK..ttyUSB0", "");
    MakeOlder(file, 1100ms);
    EXPECT_FALSE(HoldByLockFile(adapter, folders));
    EXPECT_TRUE(RemoveLockFiles(adapter, folders));
    EXPECT_FALSE(fs::exists(file));
}

/// As by a laptop whose clock was put back.
TEST_F(LockFile, ThatIsEmptyAndOfATimeToComeIsTakenAwayToo)
{
    const fs::path file = Leave("LCK..ttyUSB0", "");
    MakeOlder(file, -24h);
    EXPECT_FALSE(HoldByLockFile(adapter, folders));
    EXPECT_TRUE(RemoveLockFiles(adapter, folders));
}

TEST_F(LockFile, OfADeadProcessOrOfThisNumberIsTakenAway)
{
    const fs::path dead = Leave("LCK..ttyUSB0", std::to_string(EndedProcess()) + " minicom root\n");
    const fs::path ours = Leave("LCK..usb-Adapter_A1", std::to_string(::getpid()) + "\n");
    EXPECT_FALSE(HoldByLockFile(adapter, folders));
    EXPECT_TRUE(RemoveLockFiles(adapter, folders));
    EXPECT_FALSE(fs::exists(dead));
    EXPECT_FALSE(fs::exists(ours));
}

TEST_F(LockFile, OfADeadProcessKeepsNothingWhereItMayNotBeRemoved)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can leave another user's file";
    const fs::path dead = Leave("LCK..ttyUSB0", std::to_string(EndedProcess()) + "\n");
    fs::permissions(folder.Path(), fs::perms(01777));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(HoldByLockFile(adapter, folders));
        EXPECT_FALSE(RemoveLockFiles(adapter, folders));
    }
    EXPECT_TRUE(fs::exists(dead));
}

TEST_F(LockFile, KeepsNothingWhereThereIsNone)
{
    EXPECT_THAT(LockFilesOf(adapter, folders), IsEmpty());
    EXPECT_FALSE(HoldByLockFile(adapter, folders));
    EXPECT_TRUE(RemoveLockFiles(adapter, folders));
    EXPECT_THAT(LockFilesOf(adapter, {folder / "absent", {}}), IsEmpty());
}

} // namespace
} // namespace tarvex::tests
