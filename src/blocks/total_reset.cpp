#include "blocks/total_reset.h"

#include "blocks/block_steps.h"
#include "blocks/header_writing.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/operation_end.h"

namespace tarvex
{

namespace
{
constexpr int kSettleTicks = 4;
} // namespace

void TotalReset(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                EventPump& pump)
{
    SkipOnError rule;
    if (!view.Confirms(kAllBlockWillBeLost)) return;

    link.ExpectExchanges(kAllRecordsAndClosing);
    view.ShowWaitIndicator();
    link.OpenPort();
    HeaderFile file(state);
    file.Open();
    FillDefaults(state, file);
    file.Close();

    if (!WriteAllRecords(panel, state, link, pump, kSettleTicks))
        return EndOnFirstFailure(panel, state, link, view);
    pump.DoEvents();
    view.ShowWaitIndicator();
    if (!WriteClosing(link, kSettleTicks)) return EndOnSecondFailure(link, view);

    GoToFirstBlock(panel, state);
    ReloadPanel(panel, state);
    EndOperation(link, view);
}

} // namespace tarvex
