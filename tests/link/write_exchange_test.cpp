#include "link/write_frames.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// A link under the rule of the commands, on an open port.
class WriteExchangeTest : public LogicTest
{
protected:
    WriteExchangeTest()
    {
        link.OpenPort();
        port.history.clear();
    }

    bool Exchange(int ticks = 2)
    {
        return WriteExchange(link, ticks, [&] { link.SendFrame("b000F03"); });
    }

    SkipOnError rule;
    DeviceLink link{line};
};

TEST_F(WriteExchangeTest, SendsItsFrameAfterAnAnsweredWakeAndSettles)
{
    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> b000F03\r"));
    EXPECT_EQ(world.Now(), 200);
}

TEST_F(WriteExchangeTest, SendsNothingAndLeavesThePortAloneWhenTheWakeRunsOut)
{
    unit.answerWake = [](int) { return ""; };

    EXPECT_FALSE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }"));
    EXPECT_EQ(world.Now(), 600);
    EXPECT_TRUE(port.IsOpen()) << "what follows is the command's own affair";
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(WriteExchangeTest, TakesAnAnswerOneMillisecondBeforeTheSixthTick)
{
    unit.latency = 599;

    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> b000F03\r"));
}

TEST_F(WriteExchangeTest, RefusesAnAnswerOnThePassOfTheSixthTick)
{
    unit.latency = 600;

    EXPECT_FALSE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }")) << "not even taken";
    EXPECT_EQ(port.InBufferCount(), 1);
}

class WrongAnswerTest : public WriteExchangeTest, public ::testing::WithParamInterface<std::string>
{
};

TEST_P(WrongAnswerTest, LosesTheFrameAndItsSettleWaitInSilence)
{
    unit.answerWake = [&](int) { return GetParam(); };

    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }", "< " + GetParam()));
    EXPECT_EQ(world.Now(), unit.latency);
    EXPECT_EQ(boxes.shown, 0);
}

INSTANTIATE_TEST_SUITE_P(Answers, WrongAnswerTest,
                         ::testing::Values("?", "!!", "!\r", " !", "x!", "}", "\xA1",
                                           std::string("!\0", 2), std::string(1, '\0'),
                                           "!" + std::string(49, '0')));

TEST_F(WriteExchangeTest, BuildsItsFrameOnceTheUnitIsAwake)
{
    unit.onWake = [&](int) { panel.header[Client].SetText("VERDI"); };

    EXPECT_TRUE(WriteExchange(link, 2, [&] { SendHeaderFrame(link, panel.header, 0); }));

    EXPECT_EQ(port.sent[1].substr(0, 11), "C00000VERDI");
}

TEST_F(WriteExchangeTest, SettlesAlsoWhenNothingWasThereToSend)
{
    EXPECT_TRUE(WriteExchange(link, 4, [&] { SendHeaderFrame(link, panel.header, 2.5); }));

    EXPECT_THAT(port.sent, ElementsAre("}"));
    EXPECT_EQ(world.Now(), 400);
}

TEST_F(WriteExchangeTest, LeavesAByteOfTheSettleWaitToTheNextWake)
{
    world.At(150, [&] { port.Receive("x"); });
    EXPECT_TRUE(Exchange());
    EXPECT_EQ(port.InBufferCount(), 1);

    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> b000F03\r", "> }", "< x"));
    EXPECT_EQ(world.Now(), 200) << "a byte that is there already costs no time";
}

TEST_F(WriteExchangeTest, EndsAtOnceWithoutAFrameOnAPortThatIsNotOpen)
{
    link.ClosePort();
    port.history.clear();

    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ::testing::IsEmpty());
    EXPECT_EQ(world.Now(), 0);
}

TEST_F(WriteExchangeTest, RunsWithTheAnswerBeforeWhenThePortIsClosedUnderIt)
{
    EXPECT_TRUE(Exchange());
    link.ClosePort();
    port.history.clear();

    EXPECT_TRUE(Exchange());

    EXPECT_THAT(port.history, ::testing::IsEmpty());
    EXPECT_EQ(world.Now(), 400) << "the answer taken last was ready, and no other replaces it";
}

TEST_F(WriteExchangeTest, SendsNothingMoreWhenTheProgramEndsInTheSettleWait)
{
    world.EndProgramAt(120);

    EXPECT_THROW(static_cast<void>(Exchange()), ProgramEnded);

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> b000F03\r"));
}

/// How long a settle wait takes by its bound and by when the answer comes in the timer's period.
struct SettleRow {
    const char* name;
    int ticks;
    Milliseconds pressedAt; ///< the timer's period began at 0; the answer comes 1 later
    Milliseconds overAt;
};

class SettleTest : public WriteExchangeTest, public ::testing::WithParamInterface<SettleRow>
{
};

TEST_P(SettleTest, EndsWithTheTickOfItsBound)
{
    world.Enable();
    world.PassTime(GetParam().pressedAt);

    EXPECT_TRUE(Exchange(GetParam().ticks));

    EXPECT_EQ(world.Now(), GetParam().overAt);
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, SettleTest,
    ::testing::Values(SettleRow{"TwoFromTheStartOfAPeriod", 2, 0, 200},
                      SettleRow{"TwoFromTheEndOfAPeriod", 2, 98, 200},
                      SettleRow{"ThreeFromTheStartOfAPeriod", 3, 0, 300},
                      SettleRow{"ThreeFromTheEndOfAPeriod", 3, 98, 300},
                      SettleRow{"FourFromTheStartOfAPeriod", 4, 0, 400},
                      SettleRow{"FourFromTheEndOfAPeriod", 4, 98, 400},
                      // The tick of the pass on which the answer is taken does not count.
                      SettleRow{"TwoFromATick", 2, 99, 300}),
    RowName());

} // namespace
} // namespace tarvex::tests
