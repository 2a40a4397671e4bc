#include "blocks/set_block.h"

#include "blocks/block_steps.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{
constexpr std::string_view kAllBlocksWillBeLost =
    "ATTENTION: ALL BLOCKS MEMORY DATA WILL BE LOST, WOULD YOU LIKE TO CONTINUE ?";
constexpr int kSettleTicks = 4;
} // namespace

void SetBlock(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
              MessageBoxes& boxes)
{
    SkipOnError rule;
    headers.StorePanel(state.CurrentBlock);
    if (!boxes.AskOkCancel(kAllBlocksWillBeLost)) return;

    link.ShowWaitIndicator();
    state.CurrentBlock = NumericValue(panel.Text2.Text());
    ShowRecord(panel, state, link, state.CurrentBlock);
    link.OpenPort();

    const auto sendHeader = [&] { SendHeaderFrame(link, panel, state.CurrentBlock - 1); };
    if (!WriteExchange(link, sendHeader, SettleBound::AtLeast, kSettleTicks)) {
        return EndOnFirstFailure(panel, state, link);
    }
    link.DoEvents();
    link.ShowWaitIndicator();

    const auto sendClosing = [&] { SendClosingFrame(link); };
    if (!WriteExchange(link, sendClosing, SettleBound::AtLeast, kSettleTicks)) {
        return EndOnSecondFailure(link);
    }

    state.CurrentBlock = NumericValue(panel.Text2.Text());
    headers.ReloadPanel();
    link.Close();
}

} // namespace tarvex
