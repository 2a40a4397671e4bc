#include "settings/cycle_delay.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/operation_end.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{
constexpr int kSettleTicks = 2;
} // namespace

void WriteCycleDelay(const TextBox& delay, DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    link.ExpectExchanges(1);
    view.ShowWaitIndicator();
    link.OpenPort();
    const auto send = [&] { link.SendFrame("b000F0" + PlainNumber(NumericValue(delay.Text()))); };
    if (!WriteExchange(link, kSettleTicks, send)) return EndUnanswered(link, view);
    EndOperation(link, view);
}

} // namespace tarvex
