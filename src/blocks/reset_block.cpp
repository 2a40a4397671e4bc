#include "blocks/reset_block.h"

#include "blocks/block_steps.h"
#include "blocks/header_writing.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"

namespace tarvex
{

namespace
{

constexpr int kSettleTicks = 4;

/// A number outside the thirty has no default client: the field stays as it is.
void SetDefaults(BlockHeader& header, double blockNumber)
{
    if (const auto index = BlockWithIndex(blockNumber - 1))
        header.cliente = DefaultClient(*index + 1);
    SetDefaultsButClient(header);
}

} // namespace

void ResetBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                EventPump& pump)
{
    SkipOnError rule;
    if (!view.Confirms(kAllBlockWillBeLost)) return;

    link.ExpectExchanges(kHeaderAndClosing);
    view.ShowWaitIndicator();
    link.OpenPort();

    const double blockNumber = NumericValue(panel.blockNumber.Text());
    HeaderFile file(state);
    file.Open();
    SetDefaults(state.blockHeader, blockNumber);
    file.Put(blockNumber);
    file.Close();

    state.currentBlock = blockNumber;
    ShowRecord(panel, state, pump, state.currentBlock);

    if (!WriteShownHeader(panel, state, link, kSettleTicks))
        return EndOnFirstFailure(panel, state, link, view);
    if (!WriteClosing(link, kSettleTicks)) return EndOnSecondFailure(link, view);

    view.HideWaitIndicator(); // the port stays open
}

} // namespace tarvex
