#pragma once

#include "core/event_pump.h"
#include "core/message_boxes.h"
#include "core/panel.h"
#include "core/serial_port.h"
#include "core/working_state.h"

#include <functional>
#include <string>
#include <string_view>

namespace tarvex
{

/// The timer's event: one more tick; above 5000 the count starts again from 0.
void CountTick(WorkingState& state);

/// What every operation on the line works with.
struct Line {
    SerialPort& port;
    EventPump& pump;
    TickTimer& timer;
    MessageBoxes& boxes;
    WorkingState& state;
    Panel* indicator; ///< whose wait indicator shows; null for a dialog, which has none
};

/// Where a settle wait ends.
enum class SettleBound {
    AtLeast, ///< when `TickCounter` has reached the bound
    Above    ///< when `TickCounter` has passed it
};

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
    explicit DeviceLink(const Line& line) : line_(line) {}

    /// Shows `Label34` and `Shape1`, and lets them be seen.
    void ShowWaitIndicator();
    void HideWaitIndicator();

    /// Opens the port that `ComPortNumber` names. A port still open stays the one it is.
    void OpenPort();
    void ClosePort();

    /// Port closed, then indicator hidden.
    void Close();

    /// "}" and a wait for its answer of at most 6 ticks. False when the ticks ran out, even if a
    /// byte came on that very pass: the reply is then not taken. True otherwise, and also, at once,
    /// when there is no open port.
    [[nodiscard]] bool TimedWake();

    /// "}" and a wait for its answer without any limit.
    void UntimedWake();

    /// True when the last reply is exactly "!".
    bool AnsweredReady() const { return reply_ == "!"; }

    /// The box "Attention: TAR--VEX not connected".
    void ReportNotConnected();

    /// What a wake that ran out leads to: the box, port closed, indicator hidden.
    void EndUnanswered();

    /// `frame` and CR, in one output.
    void SendFrame(std::string_view frame);

    /// Waits without limit until `count` bytes are there, then takes all that has come.
    void AwaitReply(int count);

    /// The fixed wait behind a frame that gets no answer. Nothing is taken from the port.
    void SettleWait(SettleBound bound, int ticks);

    /// Stops the tick; the next exchange starts it afresh.
    void StopTick() { line_.timer.Disable(); }

    /// A wait that only the end of the program ends.
    [[noreturn]] void WaitForEver();

    void DoEvents() { line_.pump.DoEvents(); }

    /// What has last been taken from the port in this operation; empty before. A failing take
    /// leaves it.
    const std::string& Reply() const { return reply_; }

private:
    void RestartTick();
    void SendWake();
    void TakeReply();
    void WaitUntil(const std::function<bool()>& reached);

    Line line_;
    std::string reply_;
};

} // namespace tarvex
