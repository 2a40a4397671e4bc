#include "platform/other_program.h"
#include "real_line/ftdi_adapter.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"
#include "real_line/uart.h"
#include "real_line/usb_socket.h"

#include <gmock/gmock.h>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class RealPortNumbersTest : public RealLineTest
{
protected:
    void Choose(const char* option)
    {
        AtPanel().ShowTab(3);
        AtPanel().Click(option);
        AtPanel().ShowTab(1);
    }

    void ExpectNothingRead()
    {
        AtPanel().Click("Command3");
        EXPECT_EQ(AtPanel().Text("Text3"), "");
        EXPECT_TRUE(boxes.texts.isEmpty());
        EXPECT_FALSE(HasPortOpen());
    }

    Uart uart;
    FtdiAdapter adapter;
};

/// The machine has nodes for four built-in ports, and a chip at the second and third.
TEST_F(RealPortNumbersTest, NumbersMeanTheChipsThatAreThereAndThenTheAdapter)
{
    ASSERT_TRUE(fs::exists("/dev/ttyS0"));
    ASSERT_TRUE(fs::exists("/dev/ttyS3"));
    StartWithoutLinks();

    EXPECT_EQ(TipOf(1), "Com 1: /dev/ttyS1");
    EXPECT_EQ(TipOf(2), "Com 2: /dev/ttyS2");
    EXPECT_EQ(TipOf(3), "Com 3: /dev/ttyUSB0, FT232R USB UART (FTDI), serial TV000001");
    EXPECT_THAT(TipOf(4), StartsWith("Com 4: no device."));
}

TEST_F(RealPortNumbersTest, ANumberSpeaksWithTheUnitAtItsOwnLine)
{
    StartWithoutLinks();

    ExpectBlockRead();
    EXPECT_THAT(uart.farEnd.Heard(), Not(IsEmpty()));
    EXPECT_THAT(adapter.farEnd.Heard(), IsEmpty());

    const std::string before = uart.farEnd.Heard();
    Choose("ssOption1_2");
    ExpectBlockRead();
    EXPECT_EQ(uart.farEnd.Heard(), before);
    EXPECT_THAT(adapter.farEnd.Heard(), Not(IsEmpty()));
}

TEST_F(RealPortNumbersTest, ALinkByTheAdaptersIdentityComesBeforeTheMachinesOwnPorts)
{
    StartOn(LinkByIdentity());

    ExpectBlockRead();

    EXPECT_THAT(adapter.farEnd.Heard(), Not(IsEmpty()));
    EXPECT_THAT(uart.farEnd.Heard(), IsEmpty());
    EXPECT_THAT(TipOf(1), StartsWith("Com 1: com1 -> /dev/ttyUSB0, FT232R USB UART (FTDI)"));
}

TEST_F(RealPortNumbersTest, AnAdapterThatReturnsUnderAnotherNumberIsFoundByItsLink)
{
    StartOn(LinkByIdentity());
    ASSERT_EQ(adapter.Device(), "/dev/ttyUSB0");
    const OtherProgram holder(adapter.Device(), Opens); // which keeps its number taken
    adapter.Pull();
    ExpectNothingRead();
    EXPECT_THAT(TipOf(1), HasSubstr("which is not there"));

    adapter.Plug();

    ASSERT_EQ(adapter.Device(), "/dev/ttyUSB1");
    ExpectBlockRead();
    EXPECT_THAT(TipOf(1), StartsWith("Com 1: com1 -> /dev/ttyUSB1"));
    EXPECT_THAT(TipOf(3), StartsWith("Com 3: /dev/ttyUSB1"));
}

TEST_F(RealPortNumbersTest, APortWithoutAChipIsRefusedWithoutAWordAndItsTipSaysWhy)
{
    StartOn("/dev/ttyS0");

    ExpectNothingRead();

    EXPECT_THAT(TipOf(1), StartsWith("Com 1: com1 -> /dev/ttyS0, a dead port: the machine has no "
                                     "hardware for it."));
}

} // namespace
} // namespace tarvex::tests
