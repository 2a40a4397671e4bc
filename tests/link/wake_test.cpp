#include "link_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class WakeTest : public LinkTest
{
protected:
    /// One timed wake; what came of it is in `woke`, `reply` and `ready`.
    void Wake()
    {
        OnOpenPort([&](DeviceLink& link) {
            woke = link.TimedWake();
            reply = link.Reply();
            ready = link.AnsweredReady();
            endedAt = world.Now();
        });
    }

    bool woke = false;
    bool ready = false;
    std::string reply;
    Milliseconds endedAt = -1;
};

TEST_F(WakeTest, SendsOneCharacterAndTakesTheReply)
{
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_TRUE(ready);
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "close"));
    EXPECT_EQ(endedAt, 1);
}

TEST_F(WakeTest, OpensThePortThatIsChosen)
{
    panel.portOptions.Select(2);
    Wake();
    EXPECT_EQ(port.OpenedPort(), 3);
    EXPECT_THAT(port.history, ElementsAre("port 3", "open", "> }", "< !", "close"));
}

TEST_F(WakeTest, RunsOutAtTheSixthTickOfTheFirstExchange)
{
    SilenceUnit();
    Wake();
    EXPECT_FALSE(woke);
    EXPECT_EQ(endedAt, 600);
    EXPECT_EQ(state.tickCounter, 6);
    EXPECT_EQ(reply, "");
}

TEST_F(WakeTest, RunsOutAfter500To600MsInLaterExchanges)
{
    SilenceUnit();
    Wake();
    for (const Milliseconds pause : {0, 1, 30, 50, 99}) {
        world.PassTime(pause);
        const Milliseconds start = world.Now();
        Wake();
        EXPECT_FALSE(woke);
        EXPECT_GE(endedAt - start, 500) << pause;
        EXPECT_LE(endedAt - start, 600) << pause;
        EXPECT_EQ(endedAt % 100, 0) << "the period of the tick was restarted";
    }
}

TEST_F(WakeTest, ALaterExchangeCanMeetItsFirstTickAtOnce)
{
    Wake();
    world.PassTime(99 - world.Now());
    SilenceUnit();
    Wake();
    EXPECT_EQ(endedAt, 600); // ticks at 100, 200, ... 600, of which the first came after 1 ms
}

TEST_F(WakeTest, TakesAByteThatComesJustBeforeTheSixthTick)
{
    SilenceUnit();
    ReceiveAt(599, "!");
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_TRUE(ready);
    EXPECT_EQ(state.tickCounter, 5);
}

TEST_F(WakeTest, AReplyAwaitedInsideItStartsItsTicksAnew)
{
    SilenceUnit();
    world.At(350, [&] { ClickLink([](DeviceLink& inner) { inner.AwaitReply(14); }); });
    ReceiveAt(650, "12345678901234");
    ReceiveAt(850, "!");
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_EQ(reply, "!");
    EXPECT_EQ(endedAt, 850) << "three ticks before the inner wait, five since its start";
    EXPECT_EQ(state.tickCounter, 5);
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(WakeTest, DropsAByteThatComesOnThePassOfTheSixthTick)
{
    SilenceUnit();
    ReceiveAt(600, "!");
    Wake();
    EXPECT_FALSE(woke);
    EXPECT_FALSE(ready);
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
}

TEST_F(WakeTest, StartsTheTickOnceAndNeverStopsIt)
{
    EXPECT_FALSE(world.TimerRuns());
    Wake();
    EXPECT_TRUE(world.TimerRuns());
    world.PassTime(1000);
    EXPECT_TRUE(world.TimerRuns());
    EXPECT_EQ(state.tickCounter, 10);
    Wake();
    EXPECT_EQ(state.tickCounter, 0);
    EXPECT_TRUE(world.TimerRuns());
}

TEST_F(WakeTest, OnAPortThatCannotBeOpenedEndsAtOnceWithoutABoxOrATimeout)
{
    port.refused = {1};
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_FALSE(ready);
    EXPECT_EQ(reply, "");
    EXPECT_EQ(endedAt, 0);
    EXPECT_THAT(port.history, ElementsAre("port 1"));
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(WakeTest, OnAPortClosedUnderItEndsAndKeepsTheEmptyReply)
{
    SilenceUnit();
    world.At(250, [&] { port.Close(); });
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_FALSE(ready);
    EXPECT_EQ(endedAt, 250);
}

TEST_F(WakeTest, OutsideTheRuleAMissingPortEndsTheProgram)
{
    port.refused = {1};
    ClickLink([](DeviceLink& link) { link.OpenPort(); });
    EXPECT_EQ(unhandledFailure, "No such port");
    EXPECT_TRUE(world.Ended());
}

TEST_F(WakeTest, APulledAdapterIsASilentUnit)
{
    world.At(0, [&] { port.vanished = true; });
    Wake();
    EXPECT_FALSE(woke);
    EXPECT_EQ(endedAt, 600);
}

struct ReplyRow {
    std::string name;
    std::string reply;
};

class WrongReplyTest : public WakeTest, public ::testing::WithParamInterface<ReplyRow>
{
};

TEST_P(WrongReplyTest, IsTakenWholeAndIsNotReady)
{
    unit.answerWake = [](int) { return GetParam().reply; };
    Wake();
    EXPECT_TRUE(woke);
    EXPECT_FALSE(ready);
    EXPECT_EQ(reply, GetParam().reply);
    EXPECT_THAT(port.sent, ElementsAre("}"));
    EXPECT_EQ(boxes.shown, 0);
}

INSTANTIATE_TEST_SUITE_P(Table, WrongReplyTest,
                         ::testing::Values(ReplyRow{"OtherByte", "?"}, ReplyRow{"Doubled", "!!"},
                                           ReplyRow{"LineEndAfter", "!\r"},
                                           ReplyRow{"BlankBefore", " !"}, ReplyRow{"Echo", "}"},
                                           ReplyRow{"EchoAndReady", "}!"},
                                           ReplyRow{"Nul", std::string(1, '\0')},
                                           ReplyRow{"ReadyAndNul", std::string("!\0", 2)},
                                           ReplyRow{"HighByte", "\xA1"}),
                         RowName());

TEST_F(WakeTest, UntimedWaitsPastEveryTickAndTheWrapOfTheCount)
{
    SilenceUnit();
    ReceiveAt(1'200'000, "!");
    OnOpenPort([&](DeviceLink& link) {
        link.UntimedWake();
        ready = link.AnsweredReady();
        endedAt = world.Now();
    });
    EXPECT_TRUE(ready);
    EXPECT_EQ(endedAt, 1'200'000);
    EXPECT_LE(state.tickCounter, 5000);
}

TEST_F(WakeTest, UntimedStartsTheTickFromZero)
{
    state.tickCounter = 4711;
    OnOpenPort([&](DeviceLink& link) { link.UntimedWake(); });
    EXPECT_TRUE(world.TimerRuns());
    EXPECT_EQ(state.tickCounter, 0);
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "< !", "close"));
}

TEST_F(WakeTest, UntimedEndsOnAPortClosedUnderIt)
{
    SilenceUnit();
    world.At(90'000, [&] { port.Close(); });
    OnOpenPort([&](DeviceLink& link) {
        link.UntimedWake();
        ready = link.AnsweredReady();
    });
    EXPECT_FALSE(ready);
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_EQ(world.Now(), 90'000);
}

TEST_F(WakeTest, TheEndOfTheProgramGetsOutOfBothForms)
{
    SilenceUnit();
    world.EndProgramAt(450);
    Wake();
    EXPECT_EQ(endedAt, -1);
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 450);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_THAT(port.sent, ElementsAre("}"));
}

} // namespace
} // namespace tarvex::tests
