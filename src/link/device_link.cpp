#include "link/device_link.h"

#include "core/failure_rule.h"

namespace tarvex
{

namespace
{
constexpr std::string_view kWake = "}";
constexpr int kAnswerLength = 1;
constexpr char kFrameEnd = '\r';
constexpr int kLastWakeTick = 5;
constexpr int kLastTick = 5000;
} // namespace

void CountTick(WorkingState& state)
{
    ++state.tickCounter;
    if (state.tickCounter > kLastTick) state.tickCounter = 0;
}

DeviceLink::DeviceLink(const Line& line)
    : port_(line.port),
      pump_(line.pump),
      timer_(line.timer),
      comPortNumber_(line.state.comPortNumber),
      tickCounter_(line.state.tickCounter),
      watch_(line.indicator != nullptr ? &line.indicator->progress : nullptr)
{
}

void DeviceLink::OpenPort()
{
    Attempt([&] { port_.SetCommPort(comPortNumber_); });
    Attempt([&] { port_.Open(); });
}

void DeviceLink::ClosePort()
{
    watch_.ShowEnded();
    port_.Close();
}

bool DeviceLink::TimedWake()
{
    SendWake();
    WaitUntil([&] { return port_.InBufferCount() > 0 || tickCounter_ > kLastWakeTick; });
    if (tickCounter_ > kLastWakeTick) return false;
    TakeReply();
    return true;
}

void DeviceLink::UntimedWake()
{
    SendWake();
    WaitUntil([&] { return Received() > 0; });
    TakeReply();
}

void DeviceLink::SendFrame(std::string_view frame)
{
    if (Attempt([&] { port_.Output(std::string(frame) + kFrameEnd); })) watch_.NoteFrame();
}

void DeviceLink::AwaitReply(int count)
{
    port_.ExpectInput(count);
    RestartTick();
    WaitUntil([&] { return Received() >= count; });
    if (TakeReply()) watch_.EndExchange();
}

void DeviceLink::SettleWait(int ticks)
{
    RestartTick();
    WaitUntil([&] { return tickCounter_ >= ticks; });
    watch_.EndExchange();
}

void DeviceLink::RestartTick()
{
    watch_.ShowEnded();
    tickCounter_ = 0;
    timer_.Enable();
    pump_.DoEvents();
}

void DeviceLink::SendWake()
{
    Attempt([&] { port_.Output(kWake); });
    port_.ExpectInput(kAnswerLength);
    RestartTick();
}

/// What has come so far, as a wait without a limit asks for it.
int DeviceLink::Received()
{
    const int count = port_.InBufferCount();
    watch_.Look(count, tickCounter_);
    return count;
}

bool DeviceLink::TakeReply()
{
    return Attempt([&] { reply_ = port_.Input(); });
}

/// Tests before it sleeps, for what it waits for may be there already; a failing test ends the
/// wait. The last of a reply is awaited at the port, which is quicker than to be woken by an event.
void DeviceLink::WaitUntil(const std::function<bool()>& reached)
{
    pump_.DoEvents();
    while (!Holds(reached)) {
        if (!port_.AwaitRest()) pump_.WaitForEvents();
    }
    watch_.EndWait();
}

} // namespace tarvex
