#include "settings/cycle_delay.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/write_frames.h"

namespace tarvex
{

void WriteCycleDelay(const TextBox& delay, DeviceLink& link)
{
    SkipOnError rule;
    link.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] { link.SendFrame("b000F0" + PlainNumber(NumericValue(delay.Text()))); };
    if (!WriteExchange(link, send, SettleBound::AtLeast, 2)) return link.EndUnanswered();
    link.Close();
}

} // namespace tarvex
