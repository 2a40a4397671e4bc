#include "link/operation_end.h"
#include "platform/echoing_unit.h"
#include "platform/port_test.h"
#include "platform/qt_message_boxes.h"
#include "platform/qt_tick_timer.h"

#include "core/failure_rule.h"
#include "support/scripted_boxes.h"

namespace tarvex::tests
{
namespace
{

/// The link on the real port, pump and tick.
class LineOnTheToolkit : public PortTest
{
protected:
    WorkingState state;
    ScriptedBoxes boxes;
    platform::QtTickTimer timer{[this] { CountTick(state); }};
    Line line{port, pump, timer, boxes, state, nullptr};
    DeviceLink link{line};
    OperatorView view{line};
    SkipOnError rule;
};

TEST_F(LineOnTheToolkit, ReadsPageUponPage)
{
    const EchoingUnit unit(terminal);
    link.OpenPort();
    ASSERT_TRUE(link.TimedWake());
    for (int page = 0; page < 100; ++page) {
        ASSERT_TRUE(link.AnsweredReady()) << "page " << page;
        link.SendFrame("a00100");
        link.AwaitReply(50);
        ASSERT_EQ(link.Reply(), EchoingUnit::Page());
        link.UntimedWake();
    }
    EndOperation(link, view);
}

TEST_F(LineOnTheToolkit, EndsATimedWakeOfASilentUnitAfterSixTicks)
{
    link.OpenPort();
    EXPECT_FALSE(link.TimedWake());
    EXPECT_EQ(state.tickCounter, 6);
    EXPECT_EQ(terminal.Receive(1), "}");
    EndOperation(link, view);
}

TEST_F(LineOnTheToolkit, EndsATimedWakeAfterSixTicksAlsoWhenTheAdapterIsPulled)
{
    link.OpenPort();
    QTimer::singleShot(50, [this] { terminal.HangUp(); });
    EXPECT_FALSE(link.TimedWake());
    EXPECT_EQ(state.tickCounter, 6);
    EndOperation(link, view);
}

TEST_F(LineOnTheToolkit, EndsAWakeAtOnceWithoutAPort)
{
    state.comPortNumber = 2;
    link.OpenPort();
    EXPECT_TRUE(link.TimedWake());
    EXPECT_FALSE(link.AnsweredReady());
    EXPECT_EQ(state.tickCounter, 0);
}

TEST_F(LineOnTheToolkit, LeavesAnEndlessWaitWhenTheProgramEnds)
{
    link.OpenPort();
    QTimer::singleShot(30, [this] { end.End(0); });
    EXPECT_THROW(link.UntimedWake(), ProgramEnded);
}

} // namespace
} // namespace tarvex::tests
