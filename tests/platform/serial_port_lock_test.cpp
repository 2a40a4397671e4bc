#include "platform/opening_watch.h"
#include "platform/other_program.h"
#include "platform/port_test.h"
#include "support/ordinary_user.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using ::testing::StartsWith;

/// The lock file by which other programs know that this test's own terminal is taken, in the folder
/// where this system keeps them.
class LockFileOf
{
public:
    explicit LockFileOf(const PseudoTerminal& terminal)
        : path_(fs::path("/var/lock") / ("LCK..pts_" + terminal.Device().filename().string()))
    {
    }
    ~LockFileOf() { fs::remove(path_); }
    LockFileOf(const LockFileOf&) = delete;
    LockFileOf& operator=(const LockFileOf&) = delete;

    const fs::path& Path() const { return path_; }

private:
    fs::path path_;
};

class SerialPortLock : public PortTest
{
protected:
    SerialPortLock()
    {
        if (::access("/var/lock", W_OK) != 0) lockFolder_ = "/var/lock may not be written";
    }
    void SetUp() override
    {
        if (!lockFolder_.empty()) GTEST_SKIP() << lockFolder_;
    }

    const LockFileOf lockFile{terminal};
    const OpeningWatch watch{terminal.Device()};

private:
    std::string lockFolder_;
};

TEST_F(SerialPortLock, TheWatchOfTheseTestsSeesAnOpening)
{
    EXPECT_FALSE(watch.Opened());
    port.Open();
    EXPECT_TRUE(watch.Opened());
}

TEST_F(SerialPortLock, OfALivingProcessRefusesTheOpeningAndStays)
{
    const OtherProgram other("/dev/null", Opens);
    for (const std::string& content :
         {std::to_string(other.Process()) + "\n",
          "      " + std::to_string(other.Process()) + " minicom root\n"}) {
        WriteFile(lockFile.Path(), content);
        EXPECT_THAT(RefusalOf(port), StartsWith("Port in use")) << content;
        EXPECT_FALSE(watch.Opened()) << content;
        ASSERT_TRUE(fs::exists(lockFile.Path())) << content;
        EXPECT_EQ(FileBytes(lockFile.Path()), content);
    }
}

TEST_F(SerialPortLock, OfADeadProcessIsNoLock)
{
    for (const std::string form : {"\n", " minicom root\n", "\nminicom\nthis-machine\n"}) {
        WriteFile(lockFile.Path(), std::to_string(EndedProcess()) + form);
        EXPECT_EQ(RefusalOf(port), "") << form;
        port.Close();
    }
    EXPECT_FALSE(fs::exists(lockFile.Path()));
}

TEST_F(SerialPortLock, OfADeadProcessThatMayNotBeRemovedIsNoLockEither)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can leave another user's file";
    ASSERT_EQ(::chmod(terminal.Device().c_str(), 0666), 0);
    for (const std::string form : {"\n", " minicom root\n"}) {
        WriteFile(lockFile.Path(), std::to_string(EndedProcess()) + form);
        {
            const OrdinaryUser user(folder.Path());
            port.Open();
            port.Output("}");
            EXPECT_EQ(terminal.Receive(1), "}") << form;
            port.Close();
        }
        EXPECT_TRUE(fs::exists(lockFile.Path())) << "the folder lets nobody else remove it";
    }
}

TEST_F(SerialPortLock, OfOurOwnIsHeldWhileThePortIsOpen)
{
    port.Open();
    ASSERT_TRUE(fs::exists(lockFile.Path()));
    EXPECT_THAT(FileBytes(lockFile.Path()), StartsWith(std::to_string(::getpid()) + "\n"));
    port.Close();
    EXPECT_FALSE(fs::exists(lockFile.Path()));
}

TEST_F(SerialPortLock, LeftByAKilledProcessOfThisNumberIsNoLock)
{
    for (const std::string form : {"\n", "\nplatform_test\nthis-machine\n"}) {
        WriteFile(lockFile.Path(), std::to_string(::getpid()) + form);
        EXPECT_EQ(RefusalOf(port), "") << form;
        port.Close();
    }
}

TEST_F(SerialPortLock, OfAnyAdvisoryKindRefusesWithoutAnOpening)
{
    const auto whole = [](int kind, int command, int descriptor) {
        struct flock lock {
        };
        lock.l_type = static_cast<short>(kind);
        return ::fcntl(descriptor, command, &lock) == 0;
    };
    const std::vector<std::function<bool(int)>> kinds = {
        [](int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; },
        [](int descriptor) { return ::flock(descriptor, LOCK_SH | LOCK_NB) == 0; },
        [&](int descriptor) { return whole(F_WRLCK, F_SETLK, descriptor); },
        [&](int descriptor) { return whole(F_RDLCK, F_SETLK, descriptor); },
        [&](int descriptor) { return whole(F_WRLCK, F_OFD_SETLK, descriptor); },
    };
    for (const auto& kind : kinds) {
        const OtherProgram other(terminal.Device(), kind);
        EXPECT_TRUE(watch.Opened());
        EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
        EXPECT_FALSE(watch.Opened());
    }
    EXPECT_EQ(RefusalOf(port), "");
}

TEST_F(SerialPortLock, ByTheExclusiveFlagRefusesWithoutAnOpening)
{
    ASSERT_EQ(::chmod(terminal.Device().c_str(), 0666), 0);
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    EXPECT_TRUE(watch.Opened());
    EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
    {
        const OrdinaryUser user(folder.Path());
        EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
    }
    EXPECT_FALSE(watch.Opened());
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

} // namespace
} // namespace tarvex::tests
