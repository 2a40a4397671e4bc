#include "blocks/set_all.h"

#include "blocks/block_steps.h"
#include "blocks/header_writing.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/operation_end.h"

namespace tarvex
{

namespace
{
constexpr int kSettleTicks = 2;
} // namespace

void SetAll(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
            EventPump& pump)
{
    SkipOnError rule;
    if (!view.Confirms(kAllBlockWillBeLost)) return;

    link.ExpectExchanges(kAllRecordsAndClosing);
    view.ShowWaitIndicator();
    StorePanelWithoutCalibration(panel, state, state.currentBlock);
    link.OpenPort();

    if (!WriteAllRecords(panel, state, link, pump, kSettleTicks))
        return EndOnFirstFailure(panel, state, link, view);
    if (!WriteClosing(link, kSettleTicks)) return EndOnSecondFailure(link, view);

    EndOperation(link, view);
    GoToFirstBlock(panel, state);
    ReloadPanel(panel, state);
}

} // namespace tarvex
