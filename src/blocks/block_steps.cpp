#include "blocks/block_steps.h"

#include "core/conversion.h"
#include "core/header_store.h"

namespace tarvex
{

void ShowRecord(ControlPanel& panel, WorkingState& state, EventPump& pump, double recordNumber)
{
    HeaderFile file(state);
    file.Open();
    file.Get(recordNumber);
    panel.blockNumber.SetText(TwoDigits(recordNumber));
    pump.DoEvents();
    LoadHeader(panel.header, state.blockHeader);
    file.Close();
}

void GoToFirstBlock(ControlPanel& panel, WorkingState& state)
{
    state.currentBlock = 1;
    panel.blockNumber.SetText(TwoDigits(state.currentBlock));
}

} // namespace tarvex
