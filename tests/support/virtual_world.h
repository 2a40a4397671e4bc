#pragma once

#include "core/event_pump.h"
#include "core/program_end.h"

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace tarvex::tests
{

/// Virtual time, in milliseconds from the start of the test.
using Milliseconds = std::int64_t;

/// The program's events on a virtual clock: ticks, bytes and clicks happen at given moments, and
/// the clock moves only while a wait sleeps. Several events of one moment run in the order in which
/// they were planned, in one pass.
class VirtualWorld : public EventPump, public TickTimer
{
public:
    /// `tick` is the event of `Timer1`.
    explicit VirtualWorld(std::function<void()> tick) : tick_(std::move(tick)) {}

    Milliseconds Now() const { return now_; }
    void At(Milliseconds moment, std::function<void()> event);
    void After(Milliseconds delay, std::function<void()> event)
    {
        At(now_ + delay, std::move(event));
    }

    /// From that moment on every pass of the pump raises ProgramEnded.
    void EndProgramAt(Milliseconds moment);
    bool Ended() const { return end.Ended(); }

    /// The program's own end: a handler's failure ends it too.
    ProgramEnd end;

    /// Lets the time go on outside any wait, as it does while nothing runs.
    void PassTime(Milliseconds duration);

    bool TimerRuns() const { return timerRuns_; }
    int passes = 0; ///< passes of the pump so far, sleeping or not

    void DoEvents() override;
    void WaitForEvents() override;
    void Enable() override;
    void Disable() override;

private:
    void RunDueEvents();
    void ScheduleTick(int run);
    void RequireRunning() const;

    std::function<void()> tick_;
    std::map<std::pair<Milliseconds, int>, std::function<void()>>
        events_; // by moment and order of planning
    int planned_ = 0;
    Milliseconds now_ = 0;
    bool timerRuns_ = false;
    int timerRun_ = 0;
};

} // namespace tarvex::tests
