#include "settings/cycle_delay.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

constexpr const char* kNotConnected = "Attention: TAR--VEX not connected";

class CycleDelayTest : public LogicTest
{
protected:
    void Press()
    {
        ClickLink([&](DeviceLink& link) { WriteCycleDelay(panel.cycleDelay, link, view); });
    }
};

TEST_F(CycleDelayTest, SendsTheDelayOfTheStartAndSettlesTwoTicks)
{
    LogIndicator();
    Press();

    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }", "< !",
                                          "> b000F03\r", "close", "Label34 off", "Shape1 off"));
    EXPECT_EQ(world.Now(), 200);
    EXPECT_EQ(panel.cycleDelay.Text(), "3");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(CycleDelayTest, SaysNotConnectedWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.ground.Visible());
    });
    Press();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    EXPECT_LINK_AT_REST();
}

TEST_F(CycleDelayTest, SkipsItsFrameWithoutAWordWhenTheWakeIsAnsweredOtherwise)
{
    unit.answerWake = [](int) { return "!!"; };
    Press();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !!", "close"));
    EXPECT_EQ(world.Now(), 1);
    EXPECT_LINK_AT_REST();
}

TEST_F(CycleDelayTest, EndsWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};
    Press();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    EXPECT_LINK_AT_REST();
}

TEST_F(CycleDelayTest, SendsTheDelayAsTypedOnceTheUnitIsAwake)
{
    unit.onWake = [&](int) { panel.cycleDelay.SetText("8"); };
    Press();

    EXPECT_EQ(port.sent.back(), "b000F08\r");
}

TEST_F(CycleDelayTest, RunsWithoutAnIndicatorInADialogWithItsOwnField)
{
    const TextBox dialog(6, "9");
    line.indicator = nullptr;
    OperatorView dialogView(line);
    LogIndicator();
    ClickLink([&](DeviceLink& link) { WriteCycleDelay(dialog, link, dialogView); });

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "> b000F09\r", "close"));
}

TEST_F(CycleDelayTest, StopsWithoutAnotherStepWhenTheProgramEndsInTheSettleWait)
{
    world.EndProgramAt(150);
    Press();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_LINK_WAITING();
}

struct DelayRow {
    const char* name;
    const char* typed;
    const char* frame;
};

class DelayTextTest : public CycleDelayTest, public ::testing::WithParamInterface<DelayRow>
{
};

TEST_P(DelayTextTest, GoesOutAsAPlainNumber)
{
    panel.cycleDelay.SetText(GetParam().typed);
    Press();

    EXPECT_THAT(port.sent, ElementsAre("}", GetParam().frame));
    EXPECT_EQ(panel.cycleDelay.Text(), GetParam().typed);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DelayTextTest,
    ::testing::Values(
        DelayRow{"OneDigit", "5", "b000F05\r"}, DelayRow{"Padded", "05", "b000F05\r"},
        DelayRow{"TwoDigits", "12", "b000F012\r"},
        DelayRow{"SixDigits", "123456", "b000F0123456\r"}, DelayRow{"Empty", "", "b000F00\r"},
        DelayRow{"NoDigitFirst", "a5", "b000F00\r"}, DelayRow{"DigitThenLetter", "7a", "b000F07\r"},
        DelayRow{"Fraction", "1.5", "b000F01.5\r"}, DelayRow{"BareFraction", ".5", "b000F00.5\r"},
        DelayRow{"TrailingPoint", "5.", "b000F05\r"},
        DelayRow{"TrailingZeros", "2.500", "b000F02.5\r"}, DelayRow{"Comma", "1,5", "b000F01\r"},
        DelayRow{"Exponent", "1e3", "b000F01\r"}, DelayRow{"Blanks", "  4 2", "b000F04\r"},
        DelayRow{"Plus", "+6", "b000F06\r"}, DelayRow{"Minus", "-4", "b000F0-4\r"},
        DelayRow{"MinusZero", "-0", "b000F00\r"}),
    RowName());

} // namespace
} // namespace tarvex::tests
