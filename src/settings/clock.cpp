#include "settings/clock.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/operation_end.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kActivateClock =
    "ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?";
constexpr int kWriteSettleTicks = 2;
constexpr int kStartSettleTicks = 3;
constexpr int kClockReplyLength = 14; // twelve digits, and two bytes that mean nothing here

void ShowClock(ClockBoxes& shown, std::string_view reply)
{
    shown.year.SetText(Middle(reply, 1, 2));
    shown.month.SetText(Middle(reply, 3, 2));
    shown.day.SetText(Middle(reply, 5, 2));
    shown.hours.SetText(Middle(reply, 7, 2));
    shown.minutes.SetText(Middle(reply, 9, 2));
    shown.seconds.SetText(Middle(reply, 11, 2));
}

} // namespace

void ReadClock(ClockBoxes* shown, DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    link.ExpectExchanges(1);
    view.ShowWaitIndicator();
    link.OpenPort();
    if (!link.TimedWake()) return EndUnanswered(link, view);
    if (link.AnsweredReady()) {
        link.SendFrame("H");
        link.AwaitReply(kClockReplyLength);
        if (shown != nullptr) ShowClock(*shown, link.Reply());
    }
    EndOperation(link, view);
}

void WriteClock(const ClockBoxes& boxes, DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    if (!view.Confirms(kActivateClock)) return;
    if (boxes.day.Text().empty() || boxes.hours.Text().empty()) return;

    link.ExpectExchanges(1);
    view.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] {
        link.SendFrame("G" + boxes.year.Text() + boxes.month.Text() + boxes.day.Text() +
                       boxes.hours.Text() + boxes.minutes.Text() + boxes.seconds.Text());
    };
    if (!WriteExchange(link, kWriteSettleTicks, send)) return EndUnanswered(link, view);
    EndOperation(link, view);
}

void StartClock(DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    if (!view.Confirms(kActivateClock)) return;

    link.ExpectExchanges(1);
    view.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] { link.SendFrame("c"); };
    if (!WriteExchange(link, kStartSettleTicks, send)) return EndUnanswered(link, view);
    EndOperation(link, view);
}

} // namespace tarvex
