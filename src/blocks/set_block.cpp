#include "blocks/set_block.h"

#include "blocks/block_steps.h"
#include "blocks/header_writing.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/operation_end.h"

namespace tarvex
{

namespace
{
constexpr std::string_view kAllBlocksWillBeLost =
    "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";
constexpr int kSettleTicks = 4;
} // namespace

void SetBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
              EventPump& pump)
{
    SkipOnError rule;
    StorePanel(panel, state, state.currentBlock);
    if (!view.Confirms(kAllBlocksWillBeLost)) return;

    link.ExpectExchanges(kHeaderAndClosing);
    view.ShowWaitIndicator();
    state.currentBlock = NumericValue(panel.blockNumber.Text());
    ShowRecord(panel, state, pump, state.currentBlock);
    link.OpenPort();

    if (!WriteShownHeader(panel, state, link, kSettleTicks))
        return EndOnFirstFailure(panel, state, link, view);
    pump.DoEvents();
    view.ShowWaitIndicator();
    if (!WriteClosing(link, kSettleTicks)) return EndOnSecondFailure(link, view);

    // Once more: a command nested in a wait may have moved it, or the operator typed another.
    state.currentBlock = NumericValue(panel.blockNumber.Text());
    ReloadPanel(panel, state);
    EndOperation(link, view);
}

} // namespace tarvex
