#include "blocks/header_writing.h"

#include "blocks/block_steps.h"
#include "link/operation_end.h"
#include "link/write_frames.h"

namespace tarvex
{

bool WriteShownHeader(const ControlPanel& panel, const WorkingState& state, DeviceLink& link,
                      int settleTicks)
{
    return WriteExchange(link, settleTicks,
                         [&] { SendHeaderFrame(link, panel.header, state.currentBlock - 1); });
}

bool WriteAllRecords(ControlPanel& panel, WorkingState& state, DeviceLink& link, EventPump& pump,
                     int settleTicks)
{
    const auto send = [&] { SendHeaderFrame(link, panel.header, state.currentBlock); };
    for (state.currentBlock = 0; state.currentBlock < kBlockCount; ++state.currentBlock) {
        ShowRecord(panel, state, pump, state.currentBlock + 1);
        if (!WriteExchange(link, settleTicks, send)) return false;
    }
    return true;
}

bool WriteClosing(DeviceLink& link, int settleTicks)
{
    return WriteExchange(link, settleTicks, [&] { SendClosingFrame(link); });
}

void EndOnFirstFailure(ControlPanel& panel, WorkingState& state, DeviceLink& link,
                       OperatorView& view)
{
    EndUnanswered(link, view);
    GoToFirstBlock(panel, state);
}

void EndOnSecondFailure(DeviceLink& link, OperatorView& view)
{
    view.ReportNotConnected();
    link.ClosePort();
}

} // namespace tarvex
