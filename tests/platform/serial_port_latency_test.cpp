#include "platform/device_number.h"
#include "platform/port_test.h"
#include "platform/qt_port_names.h"

#include <linux/serial.h>
#include <sys/ioctl.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// A port whose pseudo terminal has an adapter's driver and latency timer.
class SerialPortLatency : public PortTest
{
protected:
    SerialPortLatency()
    {
        const fs::path description =
            folder / platform::DeviceNumberOf(terminal.Device()) / "device";
        fs::create_directories(description);
        timer = description / "latency_timer";
        WriteFile(timer, "16\n");
        surroundings.locks = {folder.Path(), {}};
        surroundings.characterDevices = folder.Path();
        surroundings.driver = [this](int, unsigned long request, serial_struct* line) {
            return Answer(request, *line);
        };
        adapter = std::make_unique<platform::QtSerialPort>(LinksOf(folder), surroundings);
        names = std::make_unique<platform::QtPortNames>(LinksOf(folder), surroundings);
    }

    int Answer(unsigned long request, serial_struct& line)
    {
        if (pulled) return -1;
        if (request == TIOCGSERIAL) {
            line.flags = flags;
            return 0;
        }
        if (refuses) return -1;
        flags = line.flags;
        WriteFile(timer, (flags & ASYNC_LOW_LATENCY) != 0 ? "1\n" : "16\n");
        return 0;
    }

    std::string Timer() const { return FileBytes(timer); }

    fs::path timer;
    int flags = 0;
    bool refuses = false;
    bool pulled = false;
    platform::PortSurroundings surroundings;
    std::unique_ptr<platform::QtSerialPort> adapter;
    std::unique_ptr<platform::QtPortNames> names;
};

TEST_F(SerialPortLatency, IsLowWhileThePortIsOpen)
{
    adapter->Open();
    EXPECT_EQ(Timer(), "1\n");
    adapter->Close();
    EXPECT_EQ(Timer(), "16\n");
    EXPECT_THAT(names->Describe(1), Not(HasSubstr("timer")));
}

TEST_F(SerialPortLatency, IsGivenBackWhenThePortGoesWithTheProgram)
{
    adapter->Open();
    adapter.reset();
    EXPECT_EQ(Timer(), "16\n");
}

TEST_F(SerialPortLatency, RefusedStillOpensAndIsNamedInTheToolTip)
{
    refuses = true;
    EXPECT_THAT(names->Describe(1), Not(HasSubstr("timer")));
    adapter->Open();
    EXPECT_THAT(names->Describe(1), HasSubstr("up to 16 ms, and the timer could not be shortened"));
    adapter->Close();
    EXPECT_THAT(names->Describe(1), HasSubstr("up to 16 ms, and the timer could not be shortened"));
    refuses = false;
    adapter->Open();
    EXPECT_THAT(names->Describe(1), Not(HasSubstr("timer")));
}

TEST_F(SerialPortLatency, IsLeftAloneWhenTheAdapterIsPulledBeforeTheClosing)
{
    adapter->Open();
    pulled = true;
    terminal.HangUp();
    PumpFor(20);
    EXPECT_NO_THROW(adapter->Close());
    EXPECT_EQ(Timer(), "1\n");
}

} // namespace
} // namespace tarvex::tests
