#include "link/operation_end.h"
#include "link_test_fixture.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

TEST(TickCounter, CountsFrom0To5000AndStartsAgain)
{
    WorkingState state;
    CountTick(state);
    EXPECT_EQ(state.tickCounter, 1);
    state.tickCounter = 4999;
    CountTick(state);
    EXPECT_EQ(state.tickCounter, 5000);
    CountTick(state);
    EXPECT_EQ(state.tickCounter, 0);
    CountTick(state);
    EXPECT_EQ(state.tickCounter, 1);
}

class WaitTest : public LinkTest
{
protected:
    Milliseconds endedAt = -1;
    std::string reply;
};

TEST_F(WaitTest, TheCountGoesBackToZeroAfter5001Ticks)
{
    OnOpenPort([](DeviceLink& link) { link.UntimedWake(); });
    world.PassTime(500'000 - world.Now());
    EXPECT_EQ(state.tickCounter, 5000);
    world.PassTime(100);
    EXPECT_EQ(state.tickCounter, 0);
}

struct SettleRow {
    std::string name;
    int ticks;
    Milliseconds lasts; ///< after a fresh tick
    int count;
};

class SettleWaitTest : public WaitTest, public ::testing::WithParamInterface<SettleRow>
{
};

TEST_P(SettleWaitTest, EndsAtItsBoundAndTakesNothing)
{
    ReceiveAt(1, "unasked");
    int waiting = -1;
    OnOpenPort([&](DeviceLink& link) {
        link.SettleWait(GetParam().ticks);
        endedAt = world.Now();
        waiting = port.InBufferCount();
        reply = link.Reply();
    });
    EXPECT_EQ(endedAt, GetParam().lasts);
    EXPECT_EQ(state.tickCounter, GetParam().count);
    EXPECT_EQ(waiting, 7);
    EXPECT_EQ(reply, "");
    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "close"));
}

INSTANTIATE_TEST_SUITE_P(Table, SettleWaitTest,
                         ::testing::Values(SettleRow{"Two", 2, 200, 2},
                                           SettleRow{"Three", 3, 300, 3},
                                           SettleRow{"Four", 4, 400, 4},
                                           SettleRow{"Five", 5, 500, 5}),
                         RowName());

TEST_F(WaitTest, SettlesOnAClosedPortToo)
{
    ClickLink([&](DeviceLink& link) {
        SkipOnError rule;
        link.SettleWait(5);
    });
    EXPECT_EQ(world.Now(), 500);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WaitTest, SettlesFromTheMomentOfItsOwnAndNotFromTheTicksBefore)
{
    OnOpenPort([&](DeviceLink& link) {
        link.SettleWait(4);
        link.SettleWait(4);
    });
    EXPECT_EQ(world.Now(), 800);
}

TEST_F(WaitTest, AwaitsTheCountAndTakesAllThatHasCome)
{
    SilenceUnit();
    ReceiveAt(10, "1234567");
    ReceiveAt(20, "890123");
    ReceiveAt(30, "456789");
    OnOpenPort([&](DeviceLink& link) {
        link.SendFrame("H");
        link.AwaitReply(14);
        reply = link.Reply();
        endedAt = world.Now();
    });
    EXPECT_EQ(reply, "1234567890123456789");
    EXPECT_EQ(endedAt, 30);
    EXPECT_THAT(port.history,
                ElementsAre("port 1", "open", "> H\r", "< 1234567890123456789", "close"));
}

TEST_F(WaitTest, AwaitsTheCountWithoutAnyLimit)
{
    SilenceUnit();
    ReceiveAt(10, std::string(49, 'x'));
    ReceiveAt(1'000'000, "y");
    OnOpenPort([&](DeviceLink& link) {
        link.AwaitReply(50);
        endedAt = world.Now();
    });
    EXPECT_EQ(endedAt, 1'000'000);
}

TEST_F(WaitTest, OneByteShortWaitsUntilTheProgramEnds)
{
    SilenceUnit();
    ReceiveAt(10, std::string(13, 'x'));
    world.EndProgramAt(600'000);
    OnOpenPort([&](DeviceLink& link) { link.AwaitReply(14); });
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 600'000);
    EXPECT_TRUE(port.IsOpen());
}

TEST_F(WaitTest, KeepsTheReplyBeforeWhenThePortIsClosedUnderTheWait)
{
    world.At(50, [&] { port.Close(); });
    OnOpenPort([&](DeviceLink& link) {
        link.UntimedWake();
        link.AwaitReply(50);
        reply = link.Reply();
        endedAt = world.Now();
    });
    EXPECT_EQ(reply, "!");
    EXPECT_EQ(endedAt, 50);
}

TEST_F(WaitTest, EveryOperationBeginsWithAnEmptyReply)
{
    OnOpenPort([](DeviceLink& link) { link.UntimedWake(); });
    OnOpenPort([&](DeviceLink& link) { reply = link.Reply(); });
    EXPECT_EQ(reply, "");
}

TEST_F(WaitTest, AFrameIsOneOutputThatEndsInCr)
{
    OnOpenPort([](DeviceLink& link) { link.SendFrame("b000F500"); });
    EXPECT_THAT(port.sent, ElementsAre("b000F500\r"));
}

TEST_F(WaitTest, AWaitTestsBeforeItSleeps)
{
    SilenceUnit();
    OnOpenPort([&](DeviceLink& link) {
        port.Receive("12345678901234");
        link.AwaitReply(14);
        endedAt = world.Now();
    });
    EXPECT_EQ(endedAt, 0);
}

/// What an event brings about at the same moment comes with the pass after it: restarting the tick
/// is one pass, and the wait begins with another.
TEST_F(WaitTest, TwoPassesOfEventsRunBeforeItsFirstTest)
{
    SilenceUnit();
    bool first = false;
    bool second = false;
    OnOpenPort([&](DeviceLink& link) {
        port.Receive("12345678901234");
        world.After(0, [&] {
            first = true;
            world.After(0, [&] { second = true; });
        });
        link.AwaitReply(14);
        EXPECT_TRUE(first);
        EXPECT_TRUE(second);
    });
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WaitTest, SaysWhatItExpectsOfTheUnit)
{
    OnOpenPort([](DeviceLink& link) {
        link.UntimedWake();
        link.SendFrame("a02000");
        link.AwaitReply(50);
        if (!link.TimedWake()) ADD_FAILURE() << "not answered";
    });
    EXPECT_THAT(port.expected, ElementsAre(1, 50, 1));
}

TEST_F(WaitTest, AsksThePortForTheLastOfAReplyBeforeItSleeps)
{
    SilenceUnit();
    int asked = 0;
    port.awaitRest = [&] {
        port.Receive(++asked < 3 ? "" : "!");
        return true;
    };
    OnOpenPort([&](DeviceLink& link) {
        link.UntimedWake();
        reply = link.Reply();
        endedAt = world.Now();
    });
    EXPECT_EQ(reply, "!");
    EXPECT_EQ(endedAt, 0);
    EXPECT_EQ(asked, 3);
}

TEST_F(WaitTest, SleepsWhereThePortHasNothingMore)
{
    SilenceUnit();
    int asked = 0;
    port.awaitRest = [&] {
        ++asked;
        return false;
    };
    ReceiveAt(250, "!");
    OnOpenPort([&](DeviceLink& link) {
        link.UntimedWake();
        endedAt = world.Now();
    });
    EXPECT_EQ(endedAt, 250);
    EXPECT_EQ(asked, 3) << "before the two ticks and the byte";
}

TEST_F(WaitTest, ShowsAnExchangeOnceTheNextWakeIsOut)
{
    const ExchangeCount& shown = panel.waitIndicator.progress.Now();
    std::vector<int> doneAtOutput;
    const auto answer = port.unit;
    port.unit = [&](std::string_view bytes) {
        doneAtOutput.push_back(shown.done);
        answer(bytes);
    };
    OnOpenPort([&](DeviceLink& link) {
        link.ExpectExchanges(2);
        for (const auto* frame : {"a02000", "a02010"}) {
            link.UntimedWake();
            link.SendFrame(frame);
            link.AwaitReply(50);
        }
    });
    EXPECT_THAT(doneAtOutput, ElementsAre(0, 0, 0, 1)) << "at a wake, a frame, a wake, a frame";
    EXPECT_EQ(shown.done, 2);
}

TEST_F(WaitTest, AWaitCostsOnePassAnEvent)
{
    SilenceUnit();
    ReceiveAt(1000, "!");
    OnOpenPort([](DeviceLink& link) { link.UntimedWake(); });
    EXPECT_LE(world.passes, 15); // ten ticks, one byte, and the passes that never sleep
}

TEST_F(WaitTest, OpensWithTheIndicatorFirstAndClosesWithItLast)
{
    LogIndicator();
    ClickLink([&](DeviceLink& link) {
        view.ShowWaitIndicator();
        link.OpenPort();
        EndOperation(link, view);
    });
    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "close",
                                          "Label34 off", "Shape1 off"));
}

TEST_F(WaitTest, LetsTheIndicatorBeSeenBeforeThePortAndGoneAtTheEnd)
{
    bool seenBeforeOpening = false;
    world.At(0,
             [&] { seenBeforeOpening = panel.waitIndicator.ground.Visible() && !port.IsOpen(); });
    bool goneAtTheEnd = false;
    ClickLink([&](DeviceLink& link) {
        view.ShowWaitIndicator();
        link.OpenPort();
        world.At(0, [&] { goneAtTheEnd = LineAtRest(); });
        EndOperation(link, view);
    });
    EXPECT_TRUE(seenBeforeOpening);
    EXPECT_TRUE(goneAtTheEnd);
}

TEST_F(WaitTest, ReportsNotConnectedBeforeItClosesAndHides)
{
    LogIndicator();
    boxes.Expect("Attention: TAR--VEX not connected", [&] { EXPECT_LINK_WAITING(); });
    ClickLink([&](DeviceLink& link) {
        view.ShowWaitIndicator();
        link.OpenPort();
        EndUnanswered(link, view);
    });
    EXPECT_THAT(port.history, ElementsAre("Label34 on", "Shape1 on", "port 1", "open", "close",
                                          "Label34 off", "Shape1 off"));
}

TEST_F(WaitTest, ADialogHasNoIndicator)
{
    Click([&] {
        const Line dialogLine{port, world, world, boxes, state, nullptr};
        DeviceLink link(dialogLine);
        OperatorView dialogView(dialogLine);
        dialogView.ShowWaitIndicator();
        EXPECT_FALSE(panel.waitIndicator.label.Visible());
        link.OpenPort();
        EndOperation(link, dialogView);
    });
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WaitTest, AnOpenPortStaysTheOneItIs)
{
    port.Open();
    state.comPortNumber = 4;
    ClickLink([](DeviceLink& link) {
        SkipOnError rule;
        link.OpenPort();
    });
    EXPECT_EQ(port.OpenedPort(), 1);
    EXPECT_THAT(port.history, ElementsAre("open"));
}

TEST_F(WaitTest, WaitingForEverEndsWithTheProgram)
{
    world.EndProgramAt(3'000'000);
    Click([&] { WaitForEver(world); });
    EXPECT_EQ(world.Now(), 3'000'000);
    EXPECT_EQ(finishedHandlers, 0);
}

TEST_F(WaitTest, AStoppedTickStartsAfresh)
{
    SilenceUnit();
    OnOpenPort([](DeviceLink& link) { link.SettleWait(2); });
    world.PassTime(50);
    ClickLink([](DeviceLink& link) { link.StopTick(); });
    EXPECT_FALSE(world.TimerRuns());
    OnOpenPort([](DeviceLink& link) { EXPECT_FALSE(link.TimedWake()); });
    EXPECT_EQ(world.Now(), 850); // 600 ms from its own start
}

} // namespace
} // namespace tarvex::tests
