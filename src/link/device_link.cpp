#include "link/device_link.h"

#include "core/failure_rule.h"

namespace tarvex
{

namespace
{
constexpr std::string_view kWake = "}";
constexpr char kFrameEnd = '\r';
constexpr int kLastWakeTick = 5;
constexpr int kLastTick = 5000;
} // namespace

void CountTick(WorkingState& state)
{
    ++state.TickCounter;
    if (state.TickCounter > kLastTick) state.TickCounter = 0;
}

void DeviceLink::ShowWaitIndicator()
{
    if (line_.indicator != nullptr) {
        line_.indicator->Label34.Show();
        line_.indicator->Shape1.Show();
    }
    DoEvents();
}

void DeviceLink::HideWaitIndicator()
{
    if (line_.indicator != nullptr) {
        line_.indicator->Label34.Hide();
        line_.indicator->Shape1.Hide();
    }
    DoEvents();
}

void DeviceLink::OpenPort()
{
    Attempt([&] { line_.port.SetCommPort(line_.state.ComPortNumber); });
    Attempt([&] { line_.port.Open(); });
}

void DeviceLink::ClosePort()
{
    line_.port.Close();
}

void DeviceLink::Close()
{
    ClosePort();
    HideWaitIndicator();
}

bool DeviceLink::TimedWake()
{
    SendWake();
    WaitUntil(
        [&] { return line_.port.InBufferCount() > 0 || line_.state.TickCounter > kLastWakeTick; });
    if (line_.state.TickCounter > kLastWakeTick) return false;
    TakeReply();
    return true;
}

void DeviceLink::UntimedWake()
{
    SendWake();
    WaitUntil([&] { return line_.port.InBufferCount() > 0; });
    TakeReply();
}

void DeviceLink::ReportNotConnected()
{
    line_.boxes.Critical("Attention: TAR--VEX not connected");
}

void DeviceLink::EndUnanswered()
{
    ReportNotConnected();
    Close();
}

void DeviceLink::SendFrame(std::string_view frame)
{
    Attempt([&] { line_.port.Output(std::string(frame) + kFrameEnd); });
}

void DeviceLink::AwaitReply(int count)
{
    RestartTick();
    WaitUntil([&] { return line_.port.InBufferCount() >= count; });
    TakeReply();
}

void DeviceLink::SettleWait(SettleBound bound, int ticks)
{
    const int enough = bound == SettleBound::AtLeast ? ticks : ticks + 1;
    RestartTick();
    WaitUntil([&] { return line_.state.TickCounter >= enough; });
}

void DeviceLink::WaitForEver()
{
    for (;;)
        line_.pump.WaitForEvents();
}

void DeviceLink::RestartTick()
{
    line_.state.TickCounter = 0;
    line_.timer.Enable();
    DoEvents();
}

void DeviceLink::SendWake()
{
    Attempt([&] { line_.port.Output(kWake); });
    RestartTick();
}

void DeviceLink::TakeReply()
{
    Attempt([&] { reply_ = line_.port.Input(); });
}

/// Tests before it sleeps, for what it waits for may be there already; a failing test ends the
/// wait.
void DeviceLink::WaitUntil(const std::function<bool()>& reached)
{
    bool over = false;
    const auto test = [&] {
        over = true;
        Attempt([&] { over = reached(); });
    };
    DoEvents();
    for (test(); !over; test())
        line_.pump.WaitForEvents();
}

} // namespace tarvex
