#include "blocks/read_all_blocks.h"

#include "blocks/block_steps.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "core/header_store.h"
#include "link/header_pages.h"
#include "link/operation_end.h"

namespace tarvex
{

void ReadAllBlocks(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    link.ExpectExchanges(kBlockCount * kHeaderPages);
    view.ShowWaitIndicator();

    HeaderTexts texts; // a page passed over keeps the texts of the block before
    for (int index = 0; index < kBlockCount; ++index) {
        state.readAddrBlock = TwoHexDigits(index);
        panel.blockNumber.SetText(TwoDigits(index + 1));
        link.OpenPort();
        if (!ReadHeaderPages(link, panel.readAddress, state, texts))
            return EndUnanswered(link, view);
        ShowHeader(panel.header, texts);
        link.ClosePort();
        StorePanel(panel, state, index + 1);
    }

    view.HideWaitIndicator();
    GoToFirstBlock(panel, state);
    ReloadPanel(panel, state);
}

} // namespace tarvex
