#include "platform/other_program.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"

#include <gmock/gmock.h>

#include <sys/file.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace tarvex::tests
{
namespace
{

using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Modem lines that no opening makes: the terminal not ready, and a request to send.
bool SetsItsLines(int port)
{
    const int off = TIOCM_DTR;
    const int on = TIOCM_RTS;
    return ::ioctl(port, TIOCMBIC, &off) == 0 && ::ioctl(port, TIOCMBIS, &on) == 0;
}

bool HoldsByLock(int port)
{
    return SetsItsLines(port) && ::flock(port, LOCK_EX | LOCK_NB) == 0;
}

bool HoldsByFlag(int port)
{
    return SetsItsLines(port) && ::ioctl(port, TIOCEXCL) == 0;
}

class RealHeldPortTest : public BothDrivers
{
protected:
    void ExpectUntouched(bool (*hold)(int))
    {
        StartOn(line->Device());
        {
            const OtherProgram holder(line->Device(), hold);
            const LineState before = line->State();
            EXPECT_FALSE(before.dataTerminalReady);
            EXPECT_TRUE(before.requestToSend);
            const int requests = line->Requests();

            AtPanel().Click("Command3");
            EXPECT_THAT(TipOf(1), HasSubstr("in use by another program: "));

            EXPECT_EQ(line->State(), before);
            EXPECT_EQ(line->Requests(), requests) << "requests to the chip";
            EXPECT_THAT(line->farEnd.Heard(), IsEmpty());
            EXPECT_EQ(AtPanel().Text("Text3"), "");
            EXPECT_TRUE(boxes.texts.isEmpty());
            EXPECT_FALSE(HasPortOpen());
        }
        ExpectBlockRead();
    }
};

TEST_P(RealHeldPortTest, APortThatIsLockedIsLeftAloneWithItsModemLines)
{
    ExpectUntouched(HoldsByLock);
}

TEST_P(RealHeldPortTest, APortInExclusiveModeIsLeftAloneWithItsModemLines)
{
    ExpectUntouched(HoldsByFlag);
}

INSTANTIATE_TEST_SUITE_P(, RealHeldPortTest, ::testing::ValuesIn(Drivers()), DriverName);

} // namespace
} // namespace tarvex::tests
