#include "blocks/read_all_blocks.h"

#include "blocks/block_steps.h"
#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/header_pages.h"

namespace tarvex
{

void ReadAllBlocks(Panel& panel, WorkingState& state, HeaderStore& headers, DeviceLink& link)
{
    SkipOnError rule;
    link.ShowWaitIndicator();

    HeaderValues values; // a page passed over keeps the value of the block before
    for (int index = 0; index < kBlockCount; ++index) {
        state.ReadAddrBlock = TwoHexDigits(index);
        panel.Text2.SetText(TwoDigits(index + 1));
        link.OpenPort();
        if (!ReadHeaderPages(link, panel, state, kHeaderPages, values)) return link.EndUnanswered();
        ShowHeaderValues(panel, values);
        link.ClosePort();
        headers.StorePanel(index + 1);
    }

    link.HideWaitIndicator();
    GoToFirstBlock(panel, state);
    headers.ReloadPanel();
}

} // namespace tarvex
