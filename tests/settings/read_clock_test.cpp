#include "settings/clock_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class ReadClockTest : public ClockTest
{
};

TEST_F(ReadClockTest, ShowsTheSixFieldsOfAReplyOfFourteenBytes)
{
    unit.answers["H\r"] = "261121235958\r\n";
    LogIndicator();
    PressRead();

    EXPECT_THAT(port.history,
                ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "> }", "< !", "> H\r",
                            "< 261121235958\r\n", "close", "Label34 off", "Shape1 off"));
    EXPECT_EQ(panel.clock.year.Text(), "26");
    EXPECT_EQ(panel.clock.month.Text(), "11");
    EXPECT_EQ(panel.clock.day.Text(), "21");
    EXPECT_EQ(panel.clock.hours.Text(), "23");
    EXPECT_EQ(panel.clock.minutes.Text(), "59");
    EXPECT_EQ(panel.clock.seconds.Text(), "58");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadClockTest, UsesTwelveBytesOfALongerReplyThatItTakesWhole)
{
    unit.answers["H\r"] = "2611212359587654";
    PressRead();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "> H\r",
                                          "< 2611212359587654", "close"));
    EXPECT_THAT(Shown(), ElementsAre("26", "11", "21", "23", "59", "58"));
}

TEST_F(ReadClockTest, ShowsWhateverBytesCome)
{
    unit.answers["H\r"] = std::string("ab\0\r !??\xFF\x80..--", 14);
    PressRead();

    EXPECT_THAT(Shown(), ElementsAre("ab", std::string("\0\r", 2), " !", "??", "\xFF\x80", ".."));
}

TEST_F(ReadClockTest, WaitsForAReplyThatComesInPieces)
{
    world.At(2'000, [&] { port.Receive("2611212"); });
    world.At(90'000, [&] { port.Receive("359587"); });
    world.At(90'500, [&] { port.Receive("6"); });
    PressRead();

    EXPECT_EQ(world.Now(), 90'500);
    EXPECT_THAT(Shown(), ElementsAre("26", "11", "21", "23", "59", "58"));
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadClockTest, WaitsForEverForTheFourteenthByte)
{
    unit.answers["H\r"] = "2611212359587";
    world.EndProgramAt(900'000);
    PressRead();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_THAT(Shown(), ElementsAre("14", "04", "23", "10", "15", "30"));
    EXPECT_LINK_WAITING();
}

TEST_F(ReadClockTest, SaysNotConnectedAndLeavesTheFieldsWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect(kNotConnected, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_TRUE(panel.waitIndicator.label.Visible());
    });
    PressRead();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(world.Now(), 600);
    EXPECT_THAT(Shown(), ElementsAre("14", "04", "23", "10", "15", "30"));
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadClockTest, EndsWithoutAWordWhenTheWakeIsAnsweredOtherwise)
{
    unit.answerWake = [](int) { return "!!"; };
    PressRead();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !!", "close"));
    EXPECT_THAT(Shown(), ElementsAre("14", "04", "23", "10", "15", "30"));
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadClockTest, EndsWithoutAWordWhenThePortCannotBeOpened)
{
    port.refused = {1};
    PressRead();

    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_THAT(Shown(), ElementsAre("14", "04", "23", "10", "15", "30"));
    EXPECT_EQ(world.Now(), 0);
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadClockTest, TakesItsWakesAnswerForTheReplyWhenThePortIsClosedUnderIt)
{
    world.At(500, [&] { port.Close(); });
    PressRead();

    EXPECT_THAT(Shown(), ElementsAre("!", "", "", "", "", ""));
    EXPECT_EQ(world.Now(), 500);
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadClockTest, ShowsNothingInADialogWhoseBoxesItDoesNotKnow)
{
    unit.answers["H\r"] = "261121235958\r\n";
    line.indicator = nullptr;
    OperatorView dialogView(line);
    LogIndicator();
    ClickLink([&](DeviceLink& link) { ReadClock(nullptr, link, dialogView); });

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "> H\r",
                                          "< 261121235958\r\n", "close"));
    EXPECT_THAT(Shown(), ElementsAre("14", "04", "23", "10", "15", "30"));
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadClockTest, OpensThePortThatTheOperatorChose)
{
    panel.portOptions.Select(2);
    unit.answers["H\r"] = "261121235958\r\n";
    PressRead();

    EXPECT_EQ(port.history.front(), "port 3");
    EXPECT_EQ(port.OpenedPort(), 3);
}

} // namespace
} // namespace tarvex::tests
