#include "support/virtual_world.h"

#include "core/failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tarvex::tests
{

namespace
{
constexpr Milliseconds kTick = 100;
constexpr Milliseconds kLongestTest = 3'600'000;

/// No standard exception: it must pass the door that makes a failure of the program of each.
class TestGivenUp
{
};

[[noreturn]] void GiveUp(const char* reason)
{
    ADD_FAILURE() << reason;
    throw TestGivenUp();
}
} // namespace

void VirtualWorld::At(Milliseconds moment, std::function<void()> event)
{
    events_.emplace(std::pair(moment, planned_++), std::move(event));
}

void VirtualWorld::EndProgramAt(Milliseconds moment)
{
    At(moment, [this] { end.End(0); });
}

void VirtualWorld::PassTime(Milliseconds duration)
{
    const Milliseconds last = now_ + duration;
    while (!events_.empty() && events_.begin()->first.first <= last) {
        now_ = std::max(now_, events_.begin()->first.first);
        RunDueEvents();
    }
    now_ = std::max(now_, last); // a wait inside an event may have gone on for longer
}

void VirtualWorld::DoEvents()
{
    ++passes;
    RunDueEvents();
    RequireRunning();
}

void VirtualWorld::WaitForEvents()
{
    ++passes;
    if (events_.empty()) GiveUp("a wait sleeps, and no event will ever come");
    now_ = std::max(now_, events_.begin()->first.first);
    if (now_ > kLongestTest) GiveUp("a wait has not ended within an hour");
    RunDueEvents();
    RequireRunning();
}

/// Takes each event out before it runs, so that a wait nested in it finds the others still due.
/// What an event plans for the same moment belongs to the next pass.
void VirtualWorld::RunDueEvents()
{
    const int plannedBefore = planned_;
    auto next = events_.begin();
    while (next != events_.end() && next->first.first <= now_) {
        if (next->first.second >= plannedBefore) {
            ++next;
            continue;
        }
        const auto event = std::move(next->second);
        events_.erase(next);
        event();
        next = events_.begin();
    }
}

void VirtualWorld::RequireRunning() const
{
    if (Ended()) throw ProgramEnded();
}

void VirtualWorld::Enable()
{
    if (timerRuns_) return;
    timerRuns_ = true;
    ScheduleTick(++timerRun_);
}

void VirtualWorld::Disable()
{
    timerRuns_ = false;
    ++timerRun_;
}

void VirtualWorld::ScheduleTick(int run)
{
    After(kTick, [this, run] {
        if (run != timerRun_) return;
        ScheduleTick(run);
        tick_();
    });
}

} // namespace tarvex::tests
