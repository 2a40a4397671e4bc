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
        panel.portOptions.OnClick([this](int index) { ChoosePort(state, index); });
    }

    void PressWriteDelay()
    {
        ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.cycleDelay, link, view); });
    }
};

TEST_F(PortChoiceTest, StartsOnPort1)
{
    EXPECT_EQ(panel.portOptions.Selected(), 0);
    EXPECT_EQ(state.comPortNumber, 1);
}

TEST_F(PortChoiceTest, MakesEachOptionsNumberTheNextPortAndOpensNone)
{
    for (int index = 0; index < 4; ++index) {
        port.history.clear();
        panel.portOptions.Select(index);
        EXPECT_EQ(state.comPortNumber, index + 1);
        EXPECT_THAT(port.history, IsEmpty());

        PressWriteDelay();
        EXPECT_EQ(port.history.front(), "port " + std::to_string(index + 1));
        EXPECT_EQ(port.OpenedPort(), index + 1);
    }
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(PortChoiceTest, LeavesARunningCommandOnItsPort)
{
    unit.onWake = [&](int) { panel.portOptions.Select(3); };
    PressWriteDelay();

    EXPECT_EQ(port.OpenedPort(), 1);
    EXPECT_EQ(port.sent.back(), "b000F03\r");
    EXPECT_EQ(state.comPortNumber, 4);
}

} // namespace
} // namespace tarvex::tests
