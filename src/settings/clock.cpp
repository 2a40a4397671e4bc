#include "settings/clock.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kActivateClock =
    "ATTENTION: ACTIVATE CLOCK, WOULD YOU LIKE TO CONTINUE ?";
constexpr int kClockReplyLength = 14; // twelve digits, and two bytes that mean nothing here

void ShowClock(ClockBoxes& shown, std::string_view reply)
{
    shown.Text2a.SetText(Middle(reply, 1, 2));
    shown.Text1a.SetText(Middle(reply, 3, 2));
    shown.Text13a.SetText(Middle(reply, 5, 2));
    shown.Text14a.SetText(Middle(reply, 7, 2));
    shown.Text3a.SetText(Middle(reply, 9, 2));
    shown.Text4a.SetText(Middle(reply, 11, 2));
}

} // namespace

void ReadClock(ClockBoxes* shown, DeviceLink& link)
{
    SkipOnError rule;
    link.ShowWaitIndicator();
    link.OpenPort();
    if (!link.TimedWake()) return link.EndUnanswered();
    if (link.AnsweredReady()) {
        link.SendFrame("H");
        link.AwaitReply(kClockReplyLength);
        if (shown != nullptr) ShowClock(*shown, link.Reply());
    }
    link.Close();
}

void WriteClock(const ClockBoxes& boxes, DeviceLink& link, MessageBoxes& messages)
{
    SkipOnError rule;
    if (!messages.AskOkCancel(kActivateClock)) return;
    if (boxes.Text13a.Text().empty() || boxes.Text14a.Text().empty()) return;

    link.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] {
        link.SendFrame("G" + boxes.Text2a.Text() + boxes.Text1a.Text() + boxes.Text13a.Text() +
                       boxes.Text14a.Text() + boxes.Text3a.Text() + boxes.Text4a.Text());
    };
    if (!WriteExchange(link, send, SettleBound::AtLeast, 2)) return link.EndUnanswered();
    link.Close();
}

void StartClock(DeviceLink& link, MessageBoxes& messages)
{
    SkipOnError rule;
    if (!messages.AskOkCancel(kActivateClock)) return;

    link.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] { link.SendFrame("c"); };
    if (!WriteExchange(link, send, SettleBound::Above, 2)) return link.EndUnanswered();
    link.Close();
}

} // namespace tarvex
