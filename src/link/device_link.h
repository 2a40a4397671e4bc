#pragma once

#include "link/exchange_watch.h"
#include "link/line.h"

#include <functional>
#include <string>
#include <string_view>

namespace tarvex
{

/// The timer's event: one more tick; above 5000 the count starts again from 0.
void CountTick(WorkingState& state);

/// The steps of one operation on the line; every command makes one of its own, so that a command
/// nested in a wait keeps its replies apart. The steps obey the rule in force: on a port that is
/// not open they fail one by one, silently under SkipOnError.
///
/// The unit's protocol: the manager speaks first, wakes the unit with "}" before every frame and
/// takes "!" for its readiness; frames end in CR; there is no checksum, no echo and no retry. All
/// limits are in ticks of 100 ms, of which the first can come at once.
class DeviceLink
{
public:
    /// Uses the parts of `line`, which must outlive it. Touches nothing yet.
    explicit DeviceLink(const Line& line);

    /// Says of how many exchanges the operation consists, for its progress; said before it is
    /// shown, and again when the number turns out to be another one. An exchange that does not end
    /// as it should does not count as done. No effect in a dialog, which shows no progress.
    void ExpectExchanges(int count) { watch_.Expect(count); }

    /// Opens the port that `comPortNumber` names. A port still open stays the one it is.
    void OpenPort();

    /// Closes the port; a step that fails when it is not open.
    void ClosePort();

    /// "}" and a wait for its answer of at most 6 ticks. False when the ticks ran out, even if a
    /// byte came on that very pass: the reply is then not taken. True otherwise, and also, at once,
    /// when there is no open port.
    [[nodiscard]] bool TimedWake();

    /// "}" and a wait for its answer without any limit.
    void UntimedWake();

    /// True when the last reply is exactly "!".
    bool AnsweredReady() const { return reply_ == "!"; }

    /// `frame` and CR, in one output.
    void SendFrame(std::string_view frame);

    /// Waits without limit until `count` bytes are there, then takes all that has come.
    void AwaitReply(int count);

    /// The fixed wait after a frame that gets no answer: it ends when `tickCounter` has reached
    /// `ticks`. Nothing is taken from the port.
    void SettleWait(int ticks);

    /// Stops the tick; the next exchange starts it again.
    void StopTick() { timer_.Disable(); }

    /// What has last been taken from the port in this operation; empty before. A failing take
    /// leaves it.
    const std::string& Reply() const { return reply_; }

private:
    void RestartTick();
    void SendWake();
    int Received();
    bool TakeReply();
    void WaitUntil(const std::function<bool()>& reached);

    SerialPort& port_;
    EventPump& pump_;
    TickTimer& timer_;
    const int& comPortNumber_;
    int& tickCounter_;
    ExchangeWatch watch_;
    std::string reply_;
};

} // namespace tarvex
