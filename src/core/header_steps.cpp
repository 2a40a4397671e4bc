#include "core/header_steps.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"

namespace tarvex
{

namespace
{

void ShowCurrentBlock(ControlPanel& panel, const WorkingState& state)
{
    panel.blockNumber.SetText(TwoDigits(state.currentBlock));
}

void MoveUp(ControlPanel& panel, WorkingState& state)
{
    state.currentBlock += 1;
    if (state.currentBlock > kBlockCount) state.currentBlock = kBlockCount;
    ShowCurrentBlock(panel, state);
}

void MoveDown(ControlPanel& panel, WorkingState& state)
{
    state.currentBlock -= 1;
    if (state.currentBlock < 1) state.currentBlock = 1;
    ShowCurrentBlock(panel, state);
}

using Move = void (*)(ControlPanel&, WorkingState&);

void StepRecord(ControlPanel& panel, WorkingState& state, Move move)
{
    if (state.headerFilePath.empty()) return;
    StorePanel(panel, state, state.currentBlock);
    move(panel, state);

    HeaderFile file(state);
    file.Open();
    file.Get(state.currentBlock);
    LoadHeader(panel.header, state.blockHeader);
    file.Close();
}

} // namespace

void StepRecordUp(ControlPanel& panel, WorkingState& state)
{
    StepRecord(panel, state, MoveUp);
}

void StepRecordDown(ControlPanel& panel, WorkingState& state)
{
    StepRecord(panel, state, MoveDown);
}

void CopyHeaderForward(ControlPanel& panel, WorkingState& state)
{
    SkipOnError rule;
    if (state.headerFilePath.empty()) return;
    StorePanel(panel, state, state.currentBlock);
    MoveUp(panel, state);
}

} // namespace tarvex
