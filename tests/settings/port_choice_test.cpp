#include "settings/port_choice.h"

#include "settings/cycle_delay.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;

class PortChoiceTest : public LogicTest
{
protected:
    PortChoiceTest()
    {
        panel.ssOption1.OnClick([this](int index) { ChoosePort(state, index); });
    }

    void PressWriteDelay()
    {
        ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.Text16rt, link); });
    }
};

TEST_F(PortChoiceTest, StartsOnPort1)
{
    EXPECT_EQ(panel.ssOption1.Selected(), 0);
    EXPECT_EQ(state.ComPortNumber, 1);
}

TEST_F(PortChoiceTest, MakesEachOptionsNumberTheNextPortAndOpensNone)
{
    for (int index = 0; index < 4; ++index) {
        port.history.clear();
        panel.ssOption1.Select(index);
        EXPECT_EQ(state.ComPortNumber, index + 1);
        EXPECT_THAT(port.history, IsEmpty());

        PressWriteDelay();
        EXPECT_EQ(port.history.front(), "port " + std::to_string(index + 1));
        EXPECT_EQ(port.OpenedPort(), index + 1);
    }
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(PortChoiceTest, LeavesARunningCommandOnItsPort)
{
    unit.onWake = [&](int) { panel.ssOption1.Select(3); };
    PressWriteDelay();

    EXPECT_EQ(port.OpenedPort(), 1);
    EXPECT_EQ(port.sent.back(), "b000F03\r");
    EXPECT_EQ(state.ComPortNumber, 4);
}

} // namespace
} // namespace tarvex::tests
