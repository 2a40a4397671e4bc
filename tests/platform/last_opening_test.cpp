#include "platform/other_program.h"
#include "platform/port_test.h"
#include "platform/qt_port_names.h"
#include "platform/time_of_day.h"
#include "support/ordinary_user.h"

#include <regex>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using ::testing::HasSubstr;

/// The program's port and what the options of the ports say of its last opening, at two minutes
/// past two.
class LastOpening : public PortTest
{
protected:
    LastOpening() { std::filesystem::create_directory(folder / "locks"); }

    std::string Told(int number = 1)
    {
        const std::string text = names.Describe(number);
        const std::size_t line = text.find('\n');
        return line == std::string::npos ? std::string() : text.substr(line + 1);
    }

    static std::string HeldBy(const OtherProgram& other)
    {
        return "not opened 14:02: in use by platform_test (process " +
               std::to_string(other.Process()) + ")";
    }

    std::string clock = "14:02";
    platform::PortSurroundings surroundings{.locks = {folder / "locks", {}},
                                            .timeOfDay = [this] { return clock; }};
    platform::QtPortNames names{LinksOf(folder), surroundings};
    platform::QtSerialPort ours{LinksOf(folder), surroundings};
};

TEST_F(LastOpening, IsNotToldBeforeTheFirst)
{
    EXPECT_EQ(Told(), "");
}

TEST_F(LastOpening, IsToldWithItsTime)
{
    ours.Open();
    EXPECT_EQ(Told(), "opened 14:02");
    ours.Close();
    clock = "14:03";
    EXPECT_EQ(Told(), "opened 14:02");
    ours.Open();
    EXPECT_EQ(Told(), "opened 14:03");
    EXPECT_EQ(Told(2), "");
}

TEST_F(LastOpening, StaysWhenThePortIsOpenAlready)
{
    ours.Open();
    clock = "14:03";
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(), "opened 14:02");
}

TEST_F(LastOpening, NamesTheProgramWithAnAdvisoryLockAlsoAfterItsEnd)
{
    std::string held;
    {
        const OtherProgram other(terminal.Device(), [](int descriptor) {
            return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        });
        EXPECT_NE(RefusalOf(ours), "");
        held = HeldBy(other);
        EXPECT_EQ(Told(), held);
    }
    EXPECT_EQ(Told(), held);
    ours.Open();
    EXPECT_EQ(Told(), "opened 14:02");
}

TEST_F(LastOpening, NamesTheProgramWithTheExclusiveFlag)
{
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(), HeldBy(other));
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(LastOpening, NamesTheProgramThatHasThePortNowAndNotItsFormerHolder)
{
    const auto hold = [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; };
    {
        const OtherProgram former(terminal.Device(), hold);
        EXPECT_NE(RefusalOf(ours), "");
        EXPECT_EQ(Told(), HeldBy(former));
    }
    const OtherProgram other(terminal.Device(), hold);
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(), HeldBy(other));
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(LastOpening, NamesTheProgramOfALockFile)
{
    const OtherProgram other("/dev/null", Opens);
    WriteFile(folder / "locks" / ("LCK..pts_" + terminal.Device().filename().string()),
              std::to_string(other.Process()) + "\n");
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(), HeldBy(other));
}

TEST_F(LastOpening, NamesNobodyWhomTheUserMayNotSee)
{
    if (::geteuid() != 0) GTEST_SKIP() << "only the administrator can be somebody else's program";
    ASSERT_EQ(::chmod(terminal.Device().c_str(), 0666), 0);
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    {
        const OrdinaryUser user(folder.Path());
        EXPECT_NE(RefusalOf(ours), "");
        EXPECT_EQ(Told(), "not opened 14:02: in use by another program");
    }
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(LastOpening, SaysThatThereIsNoDevice)
{
    ours.SetCommPort(2);
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(2), "not opened 14:02: no such device");
    EXPECT_EQ(Told(1), "");
}

TEST_F(LastOpening, SaysThatTheAdapterIsOut)
{
    std::filesystem::create_symlink(folder / "pulled", folder / "com2");
    ours.SetCommPort(2);
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(2), "not opened 14:02: no such device");
}

TEST_F(LastOpening, SaysThatTheDeviceIsNoPort)
{
    std::filesystem::create_symlink("/dev/null", folder / "com2");
    ours.SetCommPort(2);
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(2), "not opened 14:02: no serial device");
}

TEST_F(LastOpening, SaysThatTheUserHasNoPermission)
{
    ASSERT_EQ(::chmod(terminal.Device().c_str(), 0), 0);
    const OrdinaryUser user(folder.Path());
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(Told(), "not opened 14:02: permission denied");
}

TEST_F(LastOpening, IsThatOfTheDeviceWhichTheNumberMeant)
{
    ours.Open();
    ours.Close();
    const PseudoTerminal second;
    Link("com1", second);
    EXPECT_EQ(Told(), "");
    Link("com1", terminal);
    EXPECT_EQ(Told(), "opened 14:02");
}

TEST_F(LastOpening, ComesAfterWhatTheTipSaysAnyway)
{
    const OtherProgram other(terminal.Device(), [](int descriptor) {
        return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    });
    const std::string before = names.Describe(1);
    EXPECT_THAT(before, HasSubstr("in use by another program"));
    EXPECT_NE(RefusalOf(ours), "");
    EXPECT_EQ(names.Describe(1), before + "\n" + HeldBy(other));
}

TEST(TimeOfDay, IsHoursAndMinutes)
{
    EXPECT_TRUE(std::regex_match(platform::TimeOfDay(), std::regex("[0-2][0-9]:[0-5][0-9]")));
}

} // namespace
} // namespace tarvex::tests
