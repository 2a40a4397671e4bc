#include "platform/port_test.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using ::testing::StartsWith;

using SerialPortOpening = PortTest;

/// Another program that opens the device and does `hold` to it, for as long as this lives; the
/// descriptor is -1 when it could not open it, with the reason in errno.
class OtherProgram
{
public:
    OtherProgram(const std::filesystem::path& device, const std::function<bool(int)>& hold)
    {
        std::array<int, 2> ready{};
        std::array<int, 2> leave{};
        EXPECT_EQ(::pipe(ready.data()), 0);
        EXPECT_EQ(::pipe(leave.data()), 0);
        child_ = ::fork();
        char held = 0;
        if (child_ == 0) {
            ::close(leave[1]);
            const int descriptor = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
            held = hold(descriptor) ? 'y' : 'n';
            if (::write(ready[1], &held, 1) != 1) ::_exit(1);
            ::_exit(static_cast<int>(::read(leave[0], &held, 1)));
        }
        ::close(ready[1]);
        ::close(leave[0]);
        leave_ = leave[1];
        EXPECT_EQ(::read(ready[0], &held, 1), 1);
        ::close(ready[0]);
        EXPECT_EQ(held, 'y');
    }
    ~OtherProgram()
    {
        ::close(leave_);
        EXPECT_EQ(::waitpid(child_, nullptr, 0), child_);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

private:
    pid_t child_ = -1;
    int leave_ = -1;
};

termios SettingsOf(const PseudoTerminal& terminal)
{
    termios settings{};
    EXPECT_EQ(::tcgetattr(terminal.Slave(), &settings), 0);
    return settings;
}

void ExpectUntouched(const PseudoTerminal& terminal, const termios& before)
{
    const termios after = SettingsOf(terminal);
    EXPECT_EQ(after.c_cflag, before.c_cflag);
    EXPECT_EQ(after.c_iflag, before.c_iflag);
    EXPECT_EQ(::cfgetospeed(&after), ::cfgetospeed(&before));
}

TEST_F(SerialPortOpening, FailsWhenAnotherPortOfThisProgramHoldsTheDevice)
{
    platform::QtSerialPort other(LinksOf(folder));
    other.Open();
    EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
    terminal.Send("!");
    EXPECT_TRUE(PumpUntil([&] { return other.InBufferCount() == 1; }));
    other.Close();
    EXPECT_EQ(RefusalOf(port), "");
}

TEST_F(SerialPortOpening, FailsWhenTheDeviceIsHeldUnderAnotherName)
{
    Link("com2", terminal);
    platform::QtSerialPort other(LinksOf(folder));
    other.SetCommPort(2);
    other.Open();
    EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
}

TEST_F(SerialPortOpening, LeavesADeviceAloneThatAnotherProgramHasLocked)
{
    const termios before = SettingsOf(terminal);
    terminal.Send("theirs");
    terminal.AwaitArrival(6);
    {
        const OtherProgram other(terminal.Device(), [](int descriptor) {
            return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        });
        EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
        ExpectUntouched(terminal, before);
        terminal.AwaitArrival(6);
    }
    EXPECT_EQ(RefusalOf(port), "");
}

TEST_F(SerialPortOpening, LeavesADeviceAloneThatAnotherProgramHasOpenedExclusively)
{
    const termios before = SettingsOf(terminal);
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    EXPECT_THAT(RefusalOf(port), StartsWith("Port in use"));
    ExpectUntouched(terminal, before);
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(SerialPortOpening, KeepsOtherProgramsOut)
{
    port.Open();
    const OtherProgram other(terminal.Device(), [](int descriptor) {
        if (descriptor < 0) return errno == EBUSY; // the exclusive flag stops everybody but root
        int exclusive = 0;
        return ::ioctl(descriptor, TIOCGEXCL, &exclusive) == 0 && exclusive != 0 &&
               ::flock(descriptor, LOCK_EX | LOCK_NB) != 0;
    });
}

TEST_F(SerialPortOpening, GivesTheDeviceBackAtTheClosing)
{
    port.Open();
    port.Close();
    const OtherProgram other(terminal.Device(), [](int descriptor) {
        int exclusive = 0;
        return ::ioctl(descriptor, TIOCGEXCL, &exclusive) == 0 && exclusive == 0 &&
               ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    });
}

TEST_F(SerialPortOpening, FailsWithoutAnyDeviceOfThatNumber)
{
    port.SetCommPort(2);
    EXPECT_EQ(RefusalOf(port), "No such port");
}

TEST_F(SerialPortOpening, FailsWhenTheLinkLeadsNowhere)
{
    std::filesystem::create_symlink(folder / "pulled", folder / "com2");
    port.SetCommPort(2);
    EXPECT_EQ(RefusalOf(port), "No such port: " + (folder / "pulled").string());
}

TEST_F(SerialPortOpening, FailsWhenTheLinkLeadsToAPlainFileWhichStaysAsItIs)
{
    WriteFile(folder / "notes", "mine");
    std::filesystem::create_symlink(folder / "notes", folder / "com2");
    port.SetCommPort(2);
    EXPECT_THAT(RefusalOf(port), StartsWith("No such port"));
    EXPECT_EQ(FileBytes(folder / "notes"), "mine");
}

TEST_F(SerialPortOpening, FailsWhenTheOperatorMayNotUseTheDevice)
{
    ASSERT_EQ(::chmod(terminal.Device().c_str(), 0), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        constexpr id_t kNobody = 65534;
        if (::getuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
            ::_exit(2);
        }
        ::_exit(RefusalOf(port).starts_with("Port not permitted") ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "2: no way to become another user";
}

TEST_F(SerialPortOpening, FailsWhenAlreadyOpenAndLeavesThePortAsItIs)
{
    port.Open();
    terminal.Send("!");
    ASSERT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1; }));
    EXPECT_EQ(RefusalOf(port), "Port already open");
    EXPECT_THROW(port.SetCommPort(2), RunTimeFailure);
    EXPECT_EQ(port.Input(), "!");
}

TEST_F(SerialPortOpening, EveryUseOfAClosedPortFailsButTheClosing)
{
    EXPECT_THROW(port.Output("}"), RunTimeFailure);
    EXPECT_THROW(port.InBufferCount(), RunTimeFailure);
    EXPECT_THROW(port.Input(), RunTimeFailure);
    EXPECT_NO_THROW(port.Close());
    EXPECT_NO_THROW(port.Close());
}

TEST_F(SerialPortOpening, AFailedOneLeavesThePortClosedAndReadyForAnother)
{
    port.SetCommPort(2);
    EXPECT_NE(RefusalOf(port), "");
    EXPECT_THROW(port.InBufferCount(), RunTimeFailure);
    port.SetCommPort(1);
    EXPECT_EQ(RefusalOf(port), "");
}

TEST_F(SerialPortOpening, TakesTheDeviceThatTheLinkLeadsToAtThatMoment)
{
    port.Open();
    port.Close();
    const PseudoTerminal second;
    Link("com1", second);
    port.Open();
    port.Output("}");
    EXPECT_EQ(second.Receive(1), "}");
    EXPECT_EQ(terminal.Receive(1, std::chrono::milliseconds(0)), "");
}

TEST_F(SerialPortOpening, WorksAgainManyTimes)
{
    for (int round = 0; round < 200; ++round) {
        port.Open();
        port.Output("}");
        ASSERT_EQ(terminal.Receive(1), "}");
        terminal.Send("!");
        ASSERT_EQ(InputOf(1), "!");
        port.Close();
    }
}

} // namespace
} // namespace tarvex::tests
