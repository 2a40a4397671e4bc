#include "platform/device_holder.h"

#include "platform/exclusive_holder.h"
#include "platform/other_program.h"
#include "platform/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using platform::DeviceHolder;
using platform::HolderByLock;
using platform::HolderOf;
using platform::LockFolders;

bool HoldExclusively(int descriptor)
{
    return ::ioctl(descriptor, TIOCEXCL) == 0;
}

class DeviceHolding : public ::testing::Test
{
protected:
    PseudoTerminal terminal;
    TemporaryFolder folder;
    LockFolders folders{folder.Path(), {}};
};

TEST_F(DeviceHolding, IsNobodysWhileTheDeviceIsMerelyOpen)
{
    const OtherProgram other(terminal.Device(), Opens);
    EXPECT_FALSE(HolderOf(terminal.Device(), folders));
}

TEST_F(DeviceHolding, ByAnAdvisoryLockNamesTheProgram)
{
    const OtherProgram other(terminal.Device(), [](int descriptor) {
        return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    });
    const auto holder = HolderOf(terminal.Device(), folders);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, other.Process());
    EXPECT_EQ(holder->Name(), "platform_test (process " + std::to_string(other.Process()) + ")");
    EXPECT_FALSE(holder->IsOurs());
}

TEST_F(DeviceHolding, ByALockOfOurOwnIsOurs)
{
    ASSERT_EQ(::flock(terminal.Slave(), LOCK_EX | LOCK_NB), 0);
    const auto holder = HolderOf(terminal.Device(), folders);
    ASSERT_TRUE(holder);
    EXPECT_TRUE(holder->IsOurs());
}

TEST_F(DeviceHolding, ByALockFileNamesTheProgram)
{
    const OtherProgram other("/dev/null", Opens);
    WriteFile(folder / ("LCK.." + terminal.Device().filename().string()),
              std::to_string(other.Process()) + "\n");
    const auto holder = HolderByLock(terminal.Device(), folders);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->Name(), "platform_test (process " + std::to_string(other.Process()) + ")");
}

TEST_F(DeviceHolding, ByALockFileThatNamesNobodyNamesTheFile)
{
    const auto file = folder / ("LCK.." + terminal.Device().filename().string());
    WriteFile(file, "");
    const auto holder = HolderByLock(terminal.Device(), folders);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->Name(), "lock file " + file.string());
}

TEST_F(DeviceHolding, ByTheExclusiveFlagNamesTheProgramThatHasItOpen)
{
    const OtherProgram other(terminal.Device(), HoldExclusively);
    EXPECT_FALSE(HolderByLock(terminal.Device(), folders));
    const auto holder = HolderOf(terminal.Device(), folders);
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->process, other.Process());
}

/// A command that tries a held port thirty times would otherwise look at all processes as often.
TEST_F(DeviceHolding, ByTheExclusiveFlagIsLookedForInTheFormerHolderFirst)
{
    const OtherProgram one(terminal.Device(), Opens);
    const OtherProgram other(terminal.Device(), HoldExclusively);
    const auto foundAfter = [&](int formerly) {
        const auto holder = HolderOf(terminal.Device(), folders, formerly);
        return holder ? holder->process : 0;
    };
    EXPECT_EQ(foundAfter(one.Process()), one.Process());
    EXPECT_EQ(foundAfter(other.Process()), other.Process());
    EXPECT_EQ(foundAfter(EndedProcess()), foundAfter(0));
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(DeviceHolding, OfNoDeviceIsNobodys)
{
    EXPECT_FALSE(HolderOf(folder / "pulled", folders));
    EXPECT_FALSE(HolderOf(folder.Path(), folders));
}

TEST(ExclusiveFlag, IsHeededByTheAdministratorForAWhile)
{
    const PseudoTerminal terminal;
    ASSERT_TRUE(HoldExclusively(terminal.Slave()));
    const auto refusal = [&] {
        errno = 0;
        const int descriptor = ::open(terminal.Device().c_str(), O_RDWR | O_NOCTTY);
        const int error = errno;
        if (descriptor >= 0) ::close(descriptor);
        return error;
    };
    const int before = refusal();
    {
        const platform::ExclusiveFlagHeeded asAnyUser;
        EXPECT_EQ(refusal(), EBUSY);
    }
    EXPECT_EQ(refusal(), before);
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

} // namespace
} // namespace tarvex::tests
