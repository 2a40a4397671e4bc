#include "real_line/open_files.h"
#include "real_line/real_line_test.h"

#include "platform/qt_serial_port.h"

#include <fcntl.h>
#include <numeric>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;

class RealSettingsTest : public BothDrivers
{
};

/// Opens a device as any program does, for as long as `act` takes.
template <class Act>
void WithOpen(const fs::path& device, Act act)
{
    const int port = ::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    ASSERT_GE(port, 0);
    act(port);
    ::close(port);
}

/// 1200 baud, 7 bits, even parity, one stop bit: nothing of it is ours.
void SetForeign(int port)
{
    termios settings{};
    EXPECT_EQ(::tcgetattr(port, &settings), 0);
    ::cfsetspeed(&settings, B1200);
    settings.c_cflag &= ~static_cast<tcflag_t>(CSIZE | CSTOPB | PARODD);
    settings.c_cflag |= CS7 | PARENB | CLOCAL | CREAD;
    settings.c_iflag |= IXON;
    EXPECT_EQ(::tcsetattr(port, TCSANOW, &settings), 0);
}

std::string SettingsOf(int port)
{
    termios settings{};
    EXPECT_EQ(::tcgetattr(port, &settings), 0);
    return {reinterpret_cast<const char*>(&settings), sizeof settings};
}

TEST_P(RealSettingsTest, TheChipRunsAt9600EightNoneTwoWithDtrOnAndRtsOff)
{
    LineState heard;
    line->farEnd.At(unit::Moment::Woken, 1, [&](std::string&) { heard = line->State(); });
    StartOn(line->Device());

    ExpectBlockRead();

    EXPECT_EQ(heard, (LineState{9600, 8, 'N', 2, true, false}));
}

TEST_P(RealSettingsTest, TheFormerSettingsAreBackAfterTheCommand)
{
    std::string before;
    WithOpen(line->Device(), [&](int port) {
        SetForeign(port);
        before = SettingsOf(port);
    });
    StartOn(line->Device());

    ExpectBlockRead();

    EXPECT_FALSE(HasPortOpen());
    const LineState after = line->State();
    EXPECT_EQ(after, (LineState{1200, 7, 'E', 1, false, false}));
    WithOpen(line->Device(), [&](int port) { EXPECT_EQ(SettingsOf(port), before); });
}

/// Every byte that there is.
std::string AllBytes()
{
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

TEST_P(RealSettingsTest, EveryByteValuePassesBothWays)
{
    fs::create_symlink(line->Device(), folder / "com1");
    WithOpen(line->Device(), SetForeign);
    platform::QtSerialPort port{platform::PortFinder(folder.Path())};
    port.Open();

    port.Output(AllBytes());
    EXPECT_TRUE(WaitFor([&] { return line->farEnd.Heard().size() == 256; }, 60'000));
    EXPECT_EQ(line->farEnd.Heard(), AllBytes());
    line->Say(AllBytes());
    EXPECT_TRUE(WaitFor([&] { return port.InBufferCount() >= 257; }, 60'000));
    EXPECT_EQ(port.Input(), "!" + AllBytes()); // the bytes had a wake among them
}

INSTANTIATE_TEST_SUITE_P(, RealSettingsTest, ::testing::ValuesIn(Drivers()), DriverName);

} // namespace
} // namespace tarvex::tests
