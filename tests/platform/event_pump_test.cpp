#include "core/failure.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_tick_timer.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

class EventPumping : public ::testing::Test
{
protected:
    EventPumping() { QCoreApplication::processEvents(); }

    static void Post(const std::function<void()>& event)
    {
        QMetaObject::invokeMethod(qApp, event, Qt::QueuedConnection);
    }

    ProgramEnd end;
    platform::QtEventPump pump{end};
};

TEST_F(EventPumping, OnePassRunsWhatIsPending)
{
    bool run = false;
    Post([&] { run = true; });
    pump.DoEvents();
    EXPECT_TRUE(run);
}

TEST_F(EventPumping, OnePassDoesNotBlockWhenNothingIsPending)
{
    bool laterEvent = false;
    QTimer::singleShot(60'000, qApp, [&] { laterEvent = true; });
    pump.DoEvents();
    EXPECT_FALSE(laterEvent);
}

TEST_F(EventPumping, AWaitSleepsUntilAnEventHasComeAndRunsIt)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(5);
    int passes = 0;
    for (; ticks < 3; ++passes)
        pump.WaitForEvents();
    EXPECT_LE(passes, 10) << "a wait came back without an event";
}

TEST_F(EventPumping, RaisesProgramEndedOutOfThePassThatEndsTheProgram)
{
    Post([&] { end.End(0); });
    EXPECT_THROW(pump.DoEvents(), ProgramEnded);
}

TEST_F(EventPumping, RaisesProgramEndedOutOfTheWaitThatEndsTheProgram)
{
    QTimer::singleShot(5, qApp, [&] { end.End(0); });
    EXPECT_THROW(for (;;) pump.WaitForEvents(), ProgramEnded);
}

TEST_F(EventPumping, RunsNoEventOnceTheProgramHasEnded)
{
    bool run = false;
    end.End(0);
    Post([&] { run = true; });
    EXPECT_THROW(pump.DoEvents(), ProgramEnded);
    EXPECT_THROW(pump.WaitForEvents(), ProgramEnded);
    EXPECT_FALSE(run);
    QCoreApplication::processEvents();
}

class Ticking : public EventPumping
{
protected:
    /// Sleeps through events until the given number of ticks, or 5 s.
    void AwaitTicks(int count)
    {
        bool over = false;
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, [&] { over = true; });
        limit.start(5000);
        while (ticks < count && !over)
            pump.WaitForEvents();
    }

    int ticks = 0;
    platform::QtTickTimer timer{[this] { ++ticks; }};
};

TEST_F(Ticking, DoesNotStartByItself)
{
    QTimer::singleShot(150, qApp, [this] { ticks += 100; });
    AwaitTicks(100);
    EXPECT_EQ(ticks, 100);
}

TEST_F(Ticking, GoesOnUntilDisabled)
{
    timer.Enable();
    AwaitTicks(2);
    EXPECT_EQ(ticks, 2);
    timer.Disable();
    QTimer::singleShot(150, qApp, [this] { ticks += 100; });
    AwaitTicks(100);
    EXPECT_EQ(ticks, 102);
}

TEST_F(Ticking, EnablingARunningTimerDoesNotRestartItsPeriod)
{
    QTimer enabler;
    QObject::connect(&enabler, &QTimer::timeout, [this] { timer.Enable(); });
    enabler.start(10);
    timer.Enable();
    AwaitTicks(1);
    EXPECT_EQ(ticks, 1) << "each enabling put the tick off";
}

TEST_F(Ticking, StartsAfreshAfterBeingDisabled)
{
    timer.Enable();
    timer.Disable();
    timer.Enable();
    AwaitTicks(1);
    EXPECT_EQ(ticks, 1);
}

} // namespace
} // namespace tarvex::tests
