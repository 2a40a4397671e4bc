#include "settings/clock_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WriteClockTest : public ClockTest
{
protected:
    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kQuestion, true);
        PressWrite();
    }
};

TEST_F(WriteClockTest, SendsTheSixFieldsYearFirstAndSettlesTwoTicks)
{
    LogIndicator();
    PressAndConfirm();

    EXPECT_THAT(port.history,
                ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }", "< !",
                            "> G140423101530\r", "close", "Label34 off", "Shape1 off"));
    EXPECT_EQ(world.Now(), 200);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WriteClockTest, TakesNoReply)
{
    unit.answers["G140423101530\r"] = "ok";
    PressAndConfirm();

    EXPECT_THAT(port.history,
                ElementsAre("port 1", "open", "> }", "< !", "> G140423101530\r", "close"));
}

TEST_F(WriteClockTest, AsksBeforeItTouchesThePort)
{
    boxes.ExpectQuestion(kQuestion, true, [&] {
        EXPECT_THAT(port.history, IsEmpty());
        EXPECT_FALSE(panel.waitIndicator.label.Visible());
    });
    PressWrite();
}

TEST_F(WriteClockTest, OpensNoPortWhenTheOperatorCancels)
{
    boxes.ExpectQuestion(kQuestion, false);
    PressWrite();

    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WriteClockTest, EndsWithoutAWordAfterTheQuestionWithoutADayOrHours)
{
    Fill("14", "04", "", "10", "15", "30");
    PressAndConfirm();
    Fill("14", "04", "23", "", "15", "30");
    PressAndConfirm();
    Fill("14", "04", "", "", "15", "30");
    PressAndConfirm();

    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
    EXPECT_EQ(boxes.shown, 3);
}

TEST_F(WriteClockTest, SendsDayAndHoursAloneWhenTheOthersAreEmpty)
{
    Fill("", "", "23", "10", "", "");
    PressAndConfirm();

    EXPECT_EQ(port.sent.back(), "G2310\r");
}

TEST_F(WriteClockTest, SendsWhatIsTypedWithoutPaddingAndWithoutAnyCheck)
{
    Fill("1", "xy", " ", "9", "99", "\xE0");
    PressAndConfirm();

    EXPECT_EQ(port.sent.back(), "G1xy 999\xE0\r");
}

TEST_F(WriteClockTest, SendsTheFieldsAsTypedOnceTheUnitIsAwake)
{
    unit.onWake = [&](int) { panel.clock.seconds.SetText("31"); };
    PressAndConfirm();

    EXPECT_EQ(port.sent.back(), "G140423101531\r");
}

TEST_F(WriteClockTest, SaysNotConnectedWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kQuestion, true);
    boxes.Expect(kNotConnected, [&] { EXPECT_TRUE(port.IsOpen()); });
    PressWrite();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    EXPECT_LINK_AT_REST();
}

TEST_F(WriteClockTest, SkipsItsFrameWithoutAWordWhenTheWakeIsAnsweredOtherwise)
{
    unit.answerWake = [](int) { return "!\r"; };
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !\r", "close"));
    EXPECT_EQ(world.Now(), 1);
    EXPECT_LINK_AT_REST();
}

TEST_F(WriteClockTest, EndsWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(world.Now(), 0);
    EXPECT_LINK_AT_REST();
}

TEST_F(WriteClockTest, RunsWithoutAnIndicatorInADialogWithItsOwnFields)
{
    ClockBoxes dialog;
    dialog.day.SetText("01");
    dialog.hours.SetText("02");
    line.indicator = nullptr;
    OperatorView dialogView(line);
    LogIndicator();
    boxes.ExpectQuestion(kQuestion, true);
    ClickLink([&](DeviceLink& link) { WriteClock(dialog, link, dialogView); });

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "> G0102\r", "close"));
}

TEST_F(WriteClockTest, StopsWithoutAnotherStepWhenTheProgramEndsInTheSettleWait)
{
    world.EndProgramAt(150);
    PressAndConfirm();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_LINK_WAITING();
}

} // namespace
} // namespace tarvex::tests
