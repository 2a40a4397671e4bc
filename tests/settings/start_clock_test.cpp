#include "settings/clock_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StartClockTest : public ClockTest
{
protected:
    void PressAndConfirm()
    {
        boxes.ExpectQuestion(kQuestion, true);
        PressStart();
    }
};

TEST_F(StartClockTest, SendsItsFrameAndSettlesOneTickLongerThanWriting)
{
    LogIndicator();
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }", "< !",
                                          "> c\r", "close", "Label34 off", "Shape1 off"));
    EXPECT_EQ(world.Now(), 300);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(StartClockTest, DoesNotLookAtTheFields)
{
    Fill("", "", "", "", "", "");
    PressAndConfirm();

    EXPECT_EQ(port.sent.back(), "c\r");
}

TEST_F(StartClockTest, OpensNoPortWhenTheOperatorCancels)
{
    boxes.ExpectQuestion(kQuestion, false, [&] { EXPECT_THAT(port.history, IsEmpty()); });
    PressStart();

    EXPECT_THAT(port.history, IsEmpty());
    EXPECT_EQ(world.passes, 0);
}

TEST_F(StartClockTest, SaysNotConnectedWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.ExpectQuestion(kQuestion, true);
    boxes.Expect(kNotConnected);
    PressStart();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_LINK_AT_REST();
}

TEST_F(StartClockTest, SkipsItsFrameWithoutAWordWhenTheWakeIsAnsweredOtherwise)
{
    unit.answerWake = [](int) { return "?"; };
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< ?", "close"));
    EXPECT_EQ(world.Now(), 1);
}

TEST_F(StartClockTest, EndsWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};
    PressAndConfirm();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_LINK_AT_REST();
}

} // namespace
} // namespace tarvex::tests
