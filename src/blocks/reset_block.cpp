#include "blocks/reset_block.h"

#include "blocks/block_steps.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{

constexpr int kSettleTicks = 4;

/// A number outside the thirty has no default client: the field stays as it is.
void SetDefaults(BlockHeader& header, double blockNumber)
{
    for (int number = 1; number <= kBlockCount; ++number) {
        if (blockNumber == number) header.cliente = DefaultClient(number);
    }
    SetDefaultsButClient(header);
}

} // namespace

void ResetBlock(Panel& panel, WorkingState& state, DeviceLink& link, MessageBoxes& boxes)
{
    SkipOnError rule;
    if (!boxes.AskOkCancel(kAllBlockWillBeLost)) return;

    link.ShowWaitIndicator();
    link.OpenPort();

    const double blockNumber = NumericValue(panel.Text2.Text());
    HeaderFile file(state);
    file.Open();
    SetDefaults(state.BlockHeader, blockNumber);
    file.Put(blockNumber);
    file.Close();

    state.CurrentBlock = NumericValue(panel.Text2.Text());
    ShowRecord(panel, state, link, state.CurrentBlock);

    const auto sendHeader = [&] { SendHeaderFrame(link, panel, state.CurrentBlock - 1); };
    if (!WriteExchange(link, sendHeader, SettleBound::AtLeast, kSettleTicks)) {
        return EndOnFirstFailure(panel, state, link);
    }

    const auto sendClosing = [&] { SendClosingFrame(link); };
    if (!WriteExchange(link, sendClosing, SettleBound::AtLeast, kSettleTicks)) {
        return EndOnSecondFailure(link);
    }

    link.HideWaitIndicator(); // the port stays open
}

} // namespace tarvex
