#pragma once

namespace tarvex
{

/// The program's one source of events: ticks, received bytes and the operator's clicks reach it
/// only through here. Both calls may run whole other handlers, and both raise ProgramEnded once the
/// program ends.
class EventPump
{
public:
    virtual ~EventPump() = default;

    /// One pass over what is pending; never blocks.
    virtual void DoEvents() = 0;

    /// Sleeps until an event has come, and runs it.
    virtual void WaitForEvents() = 0;
};

/// A wait that only the end of the program ends.
[[noreturn]] inline void WaitForEver(EventPump& pump)
{
    for (;;)
        pump.WaitForEvents();
}

/// `Timer1`: the periodic tick of 100 ms.
class TickTimer
{
public:
    virtual ~TickTimer() = default;

    /// Starts the period; a running one goes on as it is.
    virtual void Enable() = 0;
    virtual void Disable() = 0;
};

} // namespace tarvex
