#include "platform/low_latency.h"

#include "platform/device_kind.h"
#include "platform/device_number.h"
#include "platform/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <linux/serial.h>
#include <memory>
#include <sys/ioctl.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using platform::DeviceKind;
using platform::KindOf;
using platform::LatencyMilliseconds;
using platform::LowLatency;

constexpr int kDescriptor = 7;

/// A serial driver, as far as its line parameters go.
struct Driver {
    serial_struct line{};
    bool knows = true;
    bool refuses = false;
    int changes = 0;

    platform::DriverCall Call()
    {
        return [this](int descriptor, unsigned long request, serial_struct* asked) {
            EXPECT_EQ(descriptor, kDescriptor);
            if (!knows) return -1;
            if (request == TIOCGSERIAL) {
                *asked = line;
                return 0;
            }
            EXPECT_EQ(request, static_cast<unsigned long>(TIOCSSERIAL));
            if (refuses) return -1;
            line = *asked;
            ++changes;
            return 0;
        };
    }
    bool HandsOverAtOnce() const { return (line.flags & ASYNC_LOW_LATENCY) != 0; }
};

TEST(LowLatency, IsAskedOfTheDriverAndGivenBack)
{
    Driver driver;
    driver.line.flags = ASYNC_SKIP_TEST;
    driver.line.baud_base = 24'000'000;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
        EXPECT_TRUE(driver.HandsOverAtOnce());
        EXPECT_EQ(driver.line.baud_base, 24'000'000) << "nothing else is changed";
    }
    EXPECT_EQ(driver.line.flags, ASYNC_SKIP_TEST);
    EXPECT_EQ(driver.line.baud_base, 24'000'000);
}

TEST(LowLatency, OfSomebodyElsesWishIsLeftAsItIs)
{
    Driver driver;
    driver.line.flags = ASYNC_LOW_LATENCY;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
    }
    EXPECT_TRUE(driver.HandsOverAtOnce());
    EXPECT_EQ(driver.changes, 0);
}

TEST(LowLatency, GivesBackNothingElseThanItTook)
{
    Driver driver;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
        driver.line.closing_wait = 3000; // another program's change in between
    }
    EXPECT_FALSE(driver.HandsOverAtOnce());
    EXPECT_EQ(driver.line.closing_wait, 3000);
}

TEST(LowLatency, IsNothingToADriverWithoutIt)
{
    Driver driver;
    driver.knows = false;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
    }
    EXPECT_EQ(driver.changes, 0);
}

TEST(LowLatency, RefusedLeavesTheDriverAsItIs)
{
    Driver driver;
    driver.refuses = true;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
        driver.refuses = false;
    }
    EXPECT_EQ(driver.changes, 0);
}

TEST(LowLatency, EndsQuietlyWhenTheAdapterWasPulled)
{
    Driver driver;
    {
        const LowLatency atOnce(kDescriptor, driver.Call());
        driver.knows = false;
    }
    EXPECT_EQ(driver.changes, 1);
}

TEST(LowLatency, IsNothingToAPseudoTerminal)
{
    const PseudoTerminal terminal;
    const LowLatency atOnce(terminal.Slave());
    EXPECT_EQ(LatencyMilliseconds(terminal.Device()), 0);
}

/// What the system says of a device, made of plain files; /dev/null lends its number.
class DeviceDescription : public ::testing::Test
{
protected:
    fs::path Describe() const
    {
        const fs::path description = folder / platform::DeviceNumberOf(device);
        fs::create_directories(description / "device");
        return description;
    }

    TemporaryFolder folder;
    const fs::path device = "/dev/null";
};

TEST_F(DeviceDescription, GivesTheLatencyOfAnAdapter)
{
    WriteFile(Describe() / "device" / "latency_timer", "16\n");
    EXPECT_EQ(LatencyMilliseconds(device, folder.Path()), 16);
}

TEST_F(DeviceDescription, GivesNoLatencyOfADeviceWithoutATimer)
{
    Describe();
    EXPECT_EQ(LatencyMilliseconds(device, folder.Path()), 0);
    EXPECT_EQ(LatencyMilliseconds(folder / "pulled", folder.Path()), 0);
}

TEST_F(DeviceDescription, RecognisesASerialLine)
{
    fs::create_symlink("../../class/tty", Describe() / "subsystem");
    EXPECT_EQ(KindOf(device, folder.Path()), DeviceKind::Serial);
    WriteFile(Describe() / "type", "4\n");
    EXPECT_EQ(KindOf(device, folder.Path()), DeviceKind::Serial);
}

TEST_F(DeviceDescription, RecognisesABuiltInPortWithoutAChip)
{
    fs::create_symlink("../../class/tty", Describe() / "subsystem");
    WriteFile(Describe() / "type", "0\n");
    EXPECT_EQ(KindOf(device, folder.Path()), DeviceKind::WithoutHardware);
}

TEST_F(DeviceDescription, RecognisesADeviceThatIsNoSerialLine)
{
    fs::create_symlink("../../class/mem", Describe() / "subsystem");
    EXPECT_EQ(KindOf(device, folder.Path()), DeviceKind::Other);
    EXPECT_EQ(KindOf(folder.Path()), DeviceKind::Other);
    WriteFile(folder / "notes", "");
    EXPECT_EQ(KindOf(folder / "notes"), DeviceKind::Other);
}

TEST_F(DeviceDescription, LeavesAPseudoTerminalASerialLine)
{
    const PseudoTerminal terminal;
    EXPECT_EQ(KindOf(terminal.Device()), DeviceKind::Serial);
}

} // namespace
} // namespace tarvex::tests
