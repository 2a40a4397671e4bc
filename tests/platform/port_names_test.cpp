#include "platform/qt_port_names.h"

#include "platform/opening_watch.h"
#include "platform/other_program.h"
#include "platform/port_test.h"
#include "platform/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <linux/serial.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace tarvex::tests
{
namespace
{

using platform::DescribePort;
using platform::DeviceAccess;
using platform::DeviceHolder;
using platform::DeviceKind;
using platform::MachinePort;
using platform::PortChoice;
using platform::PortFacts;

const DeviceAccess kUsable{true, true, "dialout"};
const DeviceAccess kForbidden{true, false, "dialout"};
const MachinePort kNoProduct;

MachinePort Product(const char* product, const char* maker, const char* serialNumber)
{
    return {"ttyUSB0", "/dev/ttyUSB0", product, maker, serialNumber};
}

struct Row {
    const char* situation;
    PortFacts facts;
    std::string text;
};

class PortDescription : public ::testing::TestWithParam<Row>
{
};

TEST_P(PortDescription, SaysWhatTheOperatorNeeds)
{
    EXPECT_EQ(DescribePort(GetParam().facts), GetParam().text);
}

const PortChoice kAdapter{{}, "/dev/ttyUSB0"};
const PortChoice kLink{"com1", "/dev/pts/3"};

INSTANTIATE_TEST_SUITE_P(
    Rows, PortDescription,
    ::testing::Values(
        Row{"Adapter",
            {1, kAdapter, Product("FT232R USB UART", "FTDI", "A1B2"), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FT232R USB UART (FTDI), serial A1B2"},
        Row{"OnlyTheProduct",
            {1, kAdapter, Product("USB Serial", "", ""), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, USB Serial"},
        Row{"OnlyTheMaker",
            {1, kAdapter, Product("", "FTDI", ""), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FTDI"},
        Row{"OnlyTheSerialNumber",
            {1, kAdapter, Product("", "", "A1B2"), kUsable, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, serial A1B2"},
        Row{"BuiltIn",
            {2, {{}, "/dev/ttyS0"}, kNoProduct, kUsable, "/srv/survey"},
            "Com 2: /dev/ttyS0"},
        Row{"Link", {1, kLink, kNoProduct, kUsable, "/srv/survey"}, "Com 1: com1 -> /dev/pts/3"},
        Row{"LinkToAdapter",
            {3, {"com3", "/dev/ttyUSB0"}, Product("FT232R USB UART", "", "A1B2"), kUsable, "/home"},
            "Com 3: com3 -> /dev/ttyUSB0, FT232R USB UART, serial A1B2"},
        Row{"LinkThatLeadsNowhere",
            {1, kLink, kNoProduct, {}, "/srv/survey"},
            "Com 1: com1 -> /dev/pts/3, which is not there. "
            "Plug in the adapter, or make the link anew."},
        Row{"NoDevice",
            {4, {}, kNoProduct, {}, "/srv/survey"},
            "Com 4: no device. Plug in the adapter, or make a link com4 in the folder "
            "/srv/survey."},
        Row{"NotPermitted",
            {1, kAdapter, Product("FT232R USB UART", "FTDI", ""), kForbidden, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, FT232R USB UART (FTDI), not permitted. Its users must be in the "
            "group dialout: run `sudo usermod -aG dialout $USER`, then log in again."},
        Row{"NotPermittedToAnyGroup",
            {1, kAdapter, kNoProduct, {true, false, {}}, "/srv/survey"},
            "Com 1: /dev/ttyUSB0, not permitted. Only the device's owner may open it: ask "
            "the machine's administrator."},
        Row{"LinkToADeadPort",
            {1, {"com1", "/dev/ttyS3"}, kNoProduct, kUsable, "/srv", DeviceKind::WithoutHardware},
            "Com 1: com1 -> /dev/ttyS3, a dead port: the machine has no hardware for it. Make the "
            "link com1 anew."},
        Row{"LinkToADisk",
            {1, {"com1", "/dev/sda"}, kNoProduct, kUsable, "/srv", DeviceKind::Other},
            "Com 1: com1 -> /dev/sda, which is no serial device. Make the link com1 anew."},
        Row{"DeadDeviceOfThatNameInTheFolder",
            {1, {{}, "/srv/com1"}, kNoProduct, kUsable, "/srv", DeviceKind::WithoutHardware},
            "Com 1: /srv/com1, a dead port: the machine has no hardware for it. Choose another "
            "port."},
        Row{"HeldByAProgramOfAKnownName",
            {1, kAdapter, kNoProduct, kUsable, "/srv", DeviceKind::Serial,
             DeviceHolder{1234, "minicom"}},
            "Com 1: /dev/ttyUSB0, in use by another program: minicom (process 1234). End that "
            "program, or wait until it lets the port go, then give the command again."},
        Row{"HeldByAProgramOfNoKnownName",
            {1, kAdapter, kNoProduct, kUsable, "/srv", DeviceKind::Serial, DeviceHolder{}},
            "Com 1: /dev/ttyUSB0, in use by another program. End that program, or wait until "
            "it lets the port go, then give the command again."},
        Row{"HeldByALockFileOfNobody",
            {1, kAdapter, kNoProduct, kUsable, "/srv", DeviceKind::Serial,
             DeviceHolder{0, {}, "/var/lock/LCK..ttyUSB0"}},
            "Com 1: /dev/ttyUSB0, in use by another program: lock file /var/lock/LCK..ttyUSB0. End "
            "that program; if none is left, remove the lock file."},
        Row{"HeldWhenLastTried",
            {1, kAdapter, kNoProduct, kUsable, "/srv", DeviceKind::Serial, {}, {true, 0}},
            "Com 1: /dev/ttyUSB0, in use by another program when a command last tried it. End that "
            "program, or wait until it lets the port go, then give the command again."},
        Row{"SlowAdapter",
            {1,
             kAdapter,
             Product("FT232R", "", ""),
             kUsable,
             "/srv",
             DeviceKind::Serial,
             {},
             {false, 16}},
            "Com 1: /dev/ttyUSB0, FT232R. Its adapter holds received bytes back for up to 16 ms, "
            "and the timer could not be shortened: reading takes longer. Run `echo 1 | sudo tee "
            "/sys/class/tty/ttyUSB0/device/latency_timer`."},
        Row{"Opened",
            {1,
             kAdapter,
             kNoProduct,
             kUsable,
             "/srv",
             DeviceKind::Serial,
             {},
             {},
             {"/dev/ttyUSB0", "14:02", {}}},
            "Com 1: /dev/ttyUSB0\nopened 14:02"},
        Row{"NotOpened",
            {1,
             kAdapter,
             kNoProduct,
             kForbidden,
             "/srv",
             DeviceKind::Serial,
             {},
             {},
             {"/dev/ttyUSB0", "14:02", "permission denied"}},
            "Com 1: /dev/ttyUSB0, not permitted. Its users must be in the group dialout: run `sudo "
            "usermod -aG dialout $USER`, then log in again.\nnot opened 14:02: permission denied"},
        Row{"NotOpenedWithoutADevice",
            {4,
             {},
             kNoProduct,
             {},
             "/srv",
             DeviceKind::Serial,
             {},
             {},
             {{}, "09:00", "no such device"}},
            "Com 4: no device. Plug in the adapter, or make a link com4 in the folder /srv.\nnot "
            "opened 09:00: no such device"},
        Row{"AnotherDeviceNotOpened",
            {1,
             kAdapter,
             kNoProduct,
             kUsable,
             "/srv",
             DeviceKind::Serial,
             {},
             {},
             {"/dev/ttyUSB1", "14:02", "permission denied"}},
            "Com 1: /dev/ttyUSB0"},
        Row{"QuickAdapter",
            {1, kAdapter, kNoProduct, kUsable, "/srv", DeviceKind::Serial, {}, {false, 1}},
            "Com 1: /dev/ttyUSB0"}),
    [](const auto& row) { return row.param.situation; });

TEST(PortNames, DescribeWhatTheFinderFindsAtThatMoment)
{
    const TemporaryFolder folder;
    const PseudoTerminal terminal;
    const std::string device = terminal.Device().string();
    platform::QtPortNames names(platform::PortFinder(folder.Path(), [device] {
        return std::vector<MachinePort>{{"ttyUSB0", device, "FT232R USB UART", "FTDI", "A1"}};
    }));
    EXPECT_EQ(names.Describe(1), "Com 1: " + device + ", FT232R USB UART (FTDI), serial A1");
    EXPECT_THAT(names.Describe(2),
                ::testing::EndsWith("in the folder " + folder.Path().string() + "."));
    std::filesystem::create_symlink(device, folder / "com2");
    EXPECT_EQ(names.Describe(2),
              "Com 2: com2 -> " + device + ", FT232R USB UART (FTDI), serial A1");
    std::filesystem::create_symlink("/dev/null", folder / "com3");
    EXPECT_THAT(names.Describe(3), ::testing::HasSubstr("which is no serial device"));
}

/// The port com1 of the program and its tool tip, in surroundings of the test's own.
class HeldPortTip : public PortTest
{
protected:
    HeldPortTip() { std::filesystem::create_directory(folder / "locks"); }

    std::string Tip() { return names.Describe(1); }
    std::string Free() const { return "Com 1: com1 -> " + terminal.Device().string(); }
    std::string Held(const OtherProgram& other) const
    {
        return Free() + ", in use by another program: platform_test (process " +
               std::to_string(other.Process()) +
               "). End that program, or wait until it lets the port go, then give the command "
               "again.";
    }

    platform::PortSurroundings surroundings{.locks = {folder / "locks", {}},
                                            .timeOfDay = [] { return "14:02"; }};
    platform::QtPortNames names{LinksOf(folder), surroundings};
    platform::QtSerialPort ours{LinksOf(folder), surroundings};
};

TEST_F(HeldPortTip, NamesTheProgramWithAnAdvisoryLock)
{
    EXPECT_EQ(Tip(), Free());
    {
        const OtherProgram other(terminal.Device(), [](int descriptor) {
            return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        });
        EXPECT_EQ(Tip(), Held(other));
    }
    EXPECT_EQ(Tip(), Free());
}

TEST_F(HeldPortTip, NamesTheProgramOfALockFile)
{
    const OtherProgram other("/dev/null", Opens);
    WriteFile(folder / "locks" / ("LCK..pts_" + terminal.Device().filename().string()),
              std::to_string(other.Process()) + "\n");
    EXPECT_EQ(Tip(), Held(other));
}

TEST_F(HeldPortTip, NamesTheProgramWithTheExclusiveFlag)
{
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    EXPECT_EQ(Tip(), Held(other));
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
    EXPECT_EQ(Tip(), Free());
}

TEST_F(HeldPortTip, IsMadeWithoutOpeningThePort)
{
    const OpeningWatch watch(terminal.Device());
    EXPECT_EQ(Tip(), Free());
    EXPECT_FALSE(watch.Opened());
    const OtherProgram other(terminal.Device(),
                             [](int descriptor) { return ::ioctl(descriptor, TIOCEXCL) == 0; });
    EXPECT_TRUE(watch.Opened());
    EXPECT_EQ(Tip(), Held(other));
    EXPECT_FALSE(watch.Opened());
    EXPECT_EQ(::ioctl(terminal.Slave(), TIOCNXCL), 0);
}

TEST_F(HeldPortTip, NamesNobodyForAPortThatThisProgramHasOpen)
{
    ours.Open();
    EXPECT_EQ(Tip(), Free() + "\nopened 14:02");
}

TEST_F(HeldPortTip, RemembersTheLastOpeningThatWasRefused)
{
    std::string process;
    {
        const OtherProgram other(terminal.Device(), [](int descriptor) {
            return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        });
        EXPECT_NE(RefusalOf(ours), "");
        process = std::to_string(other.Process());
    }
    EXPECT_EQ(
        Tip(),
        Free() +
            ", in use by another program when a command last tried it. End that "
            "program, or wait until it lets the port go, then give the command again.\nnot opened "
            "14:02: in use by platform_test (process " +
            process + ")");
    ours.Open();
    ours.Close();
    EXPECT_EQ(Tip(), Free() + "\nopened 14:02");
}

} // namespace
} // namespace tarvex::tests
