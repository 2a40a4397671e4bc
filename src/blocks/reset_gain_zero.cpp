#include "blocks/reset_gain_zero.h"

#include "core/failure_rule.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{

constexpr int kSettleTicks = 2;

void ShowDefaultCalibration(Panel& panel)
{
    panel.Text18.SetText("+1.0000");
    panel.Text20.SetText("+0.0000");
    panel.Text19.SetText("+1.0000");
    panel.Text21.SetText("+0.0000");
    panel.Text22.SetText("0");
}

} // namespace

void ResetGainZero(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link,
                   MessageBoxes& boxes)
{
    SkipOnError rule;
    headers.StorePanel(state.CurrentBlock);
    if (boxes.AskOkCancel("ATTENTION: SET DEFAULT ZERO/GAIN, WOULD YOU LIKE TO CONTINUE ?")) {
        link.ShowWaitIndicator();
        link.OpenPort();
        ShowDefaultCalibration(panel);
        link.DoEvents();

        // CurrentBlock itself counts, as the block's index, and stays there when the unit does not
        // answer.
        const auto send = [&] { SendCalibrationFrame(link, panel, state.CurrentBlock); };
        for (state.CurrentBlock = 0; state.CurrentBlock <= kLastBlockIndex; ++state.CurrentBlock) {
            if (!WriteExchange(link, send, SettleBound::AtLeast, kSettleTicks)) {
                return link.EndUnanswered();
            }
        }
        link.Close();
    }
    state.CurrentBlock = 1; // Text2 keeps its number
}

} // namespace tarvex
