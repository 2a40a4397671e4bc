#include "blocks/reset_gain_zero.h"

#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/operation_end.h"
#include "link/write_frames.h"

namespace tarvex
{

namespace
{

constexpr int kSettleTicks = 2;

void ShowDefaultCalibration(CalibrationBoxes& boxes)
{
    boxes[CalibrationBox::Gain1].SetText("+1.0000");
    boxes[CalibrationBox::Zero1].SetText("+0.0000");
    boxes[CalibrationBox::Gain2].SetText("+1.0000");
    boxes[CalibrationBox::Zero2].SetText("+0.0000");
    boxes[CalibrationBox::Point].SetText("0");
}

} // namespace

void ResetGainZero(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view,
                   EventPump& pump)
{
    SkipOnError rule;
    StorePanel(panel, state, state.currentBlock);
    if (view.Confirms("ATTENTION: SET DEFAULT ZERO/GAIN, WOULD YOU LIKE TO CONTINUE ?")) {
        link.ExpectExchanges(kBlockCount);
        view.ShowWaitIndicator();
        link.OpenPort();
        ShowDefaultCalibration(panel.calibration);
        pump.DoEvents();

        // currentBlock itself counts, as the block's index, and keeps the index of the block that
        // did not answer.
        const auto send = [&] {
            SendCalibrationFrame(link, panel.calibration, state.currentBlock);
        };
        for (state.currentBlock = 0; state.currentBlock < kBlockCount; ++state.currentBlock)
            if (!WriteExchange(link, kSettleTicks, send)) return EndUnanswered(link, view);
        EndOperation(link, view);
    }
    state.currentBlock = 1; // the number shown stays
}

} // namespace tarvex
