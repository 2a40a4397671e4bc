#include "blocks/block_steps.h"

#include "core/conversion.h"
#include "core/header_boxes.h"
#include "core/header_store.h"

namespace tarvex
{

void ShowRecord(Panel& panel, WorkingState& state, DeviceLink& link, double recordNumber)
{
    HeaderFile file(state);
    file.Open();
    file.Get(recordNumber);
    panel.Text2.SetText(TwoDigits(recordNumber));
    link.DoEvents();
    LoadHeaderBoxes(panel, state.BlockHeader);
    file.Close();
}

void GoToFirstBlock(Panel& panel, WorkingState& state)
{
    state.CurrentBlock = 1;
    panel.Text2.SetText(TwoDigits(state.CurrentBlock));
}

void EndOnFirstFailure(Panel& panel, WorkingState& state, DeviceLink& link)
{
    link.EndUnanswered();
    GoToFirstBlock(panel, state);
}

void EndOnSecondFailure(DeviceLink& link)
{
    link.ReportNotConnected();
    link.ClosePort();
}

} // namespace tarvex
