#include "blocks/read_block.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/header_pages.h"
#include "link/operation_end.h"

namespace tarvex
{

void ReadBlock(ControlPanel& panel, WorkingState& state, DeviceLink& link, OperatorView& view)
{
    SkipOnError rule;
    link.ExpectExchanges(kHeaderPages);
    view.ShowWaitIndicator();
    SetReadBlock(state, NumericValue(panel.blockNumber.Text()));
    link.OpenPort();

    HeaderTexts texts;
    if (!ReadHeaderPages(link, panel.readAddress, state, texts)) return EndUnanswered(link, view);

    ShowHeader(panel.header, texts); // at once, not page by page
    EndOperation(link, view);
}

} // namespace tarvex
