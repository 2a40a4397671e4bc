#include "platform/other_program.h"
#include "platform/port_test.h"
#include "support/ordinary_user.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>

namespace tarvex::tests
{
namespace
{

using ::testing::StartsWith;

using SerialPortOpening = PortTest;

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
    const OrdinaryUser user;
    EXPECT_THAT(RefusalOf(port), StartsWith("Port not permitted"));
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
