#include "documents/page.h"
#include "platform/port_test.h"
#include "unit/pacer.h"

#include <map>

#include <termios.h>

namespace tarvex::tests
{
namespace
{

class LineSettings : public PortTest
{
};

TEST_F(LineSettings, AreThoseOfThePage)
{
    std::map<std::string, std::string> page;
    for (const Cells& row : Page("protocol.md").Table("The line"))
        page[row.at(0)] = row.at(1);
    port.Open();

    termios line{};
    ASSERT_EQ(tcgetattr(terminal.Slave(), &line), 0);

    EXPECT_EQ(cfgetospeed(&line), static_cast<speed_t>(B9600));
    EXPECT_EQ(page.at("speed"), "9600");
    EXPECT_EQ(line.c_cflag & static_cast<tcflag_t>(CSIZE), static_cast<tcflag_t>(CS8));
    EXPECT_EQ(page.at("data bits"), "8");
    EXPECT_EQ(line.c_cflag & static_cast<tcflag_t>(PARENB), 0U);
    EXPECT_EQ(page.at("parity"), "none");
    EXPECT_NE(line.c_cflag & static_cast<tcflag_t>(CSTOPB), 0U);
    EXPECT_EQ(page.at("stop bits"), "2");
    EXPECT_EQ(line.c_cflag & static_cast<tcflag_t>(CRTSCTS), 0U);
    EXPECT_EQ(line.c_iflag & static_cast<tcflag_t>(IXON | IXOFF), 0U);
    EXPECT_EQ(page.at("flow control"), "none");
}

TEST(LineTime, OfACharacterIsThatOfThePage)
{
    for (const Cells& row : Page("protocol.md").Table("The line")) {
        if (row.at(0) != "bits a character") continue;
        EXPECT_EQ(unit::RunTime(unit::Pace::Line, 9600), std::chrono::seconds(Number(row.at(1))));
        return;
    }
    FAIL() << "the page does not say how long a character is";
}

} // namespace
} // namespace tarvex::tests
