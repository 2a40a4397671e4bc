#include "blocks/total_reset.h"

#include "blocks/block_steps.h"
#include "core/failure_rule.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{
constexpr int kSettleTicks = 4;
} // namespace

void TotalReset(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
                MessageBoxes& boxes)
{
    SkipOnError rule;
    if (!boxes.AskOkCancel(kAllBlockWillBeLost)) return;

    link.ShowWaitIndicator();
    link.OpenPort();
    HeaderFile file(state);
    file.Open();
    headers.FillDefaults(file);
    file.Close();

    // CurrentBlock itself counts, as the block's index: a command nested in a wait moves the loop.
    const auto sendHeader = [&] { SendHeaderFrame(link, panel, state.CurrentBlock); };
    for (state.CurrentBlock = 0; state.CurrentBlock <= kLastBlockIndex; ++state.CurrentBlock) {
        ShowRecord(panel, state, link, state.CurrentBlock + 1);
        if (!WriteExchange(link, sendHeader, SettleBound::AtLeast, kSettleTicks)) {
            return EndOnFirstFailure(panel, state, link);
        }
    }
    link.DoEvents();
    link.ShowWaitIndicator();

    const auto sendClosing = [&] { SendClosingFrame(link); };
    if (!WriteExchange(link, sendClosing, SettleBound::AtLeast, kSettleTicks)) {
        return EndOnSecondFailure(link);
    }

    GoToFirstBlock(panel, state);
    headers.ReloadPanel();
    link.Close();
}

} // namespace tarvex
