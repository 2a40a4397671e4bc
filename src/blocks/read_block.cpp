#include "blocks/read_block.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "link/header_pages.h"

namespace tarvex
{

void ReadBlock(Panel& panel, WorkingState& state, DeviceLink& link)
{
    SkipOnError rule;
    link.ShowWaitIndicator();
    SetReadBlock(state, TwoDigits(NumericValue(panel.Text2.Text()) - 1));
    link.OpenPort();

    HeaderValues values;
    if (!ReadHeaderPages(link, panel, state, kHeaderPages, values)) return link.EndUnanswered();

    ShowHeaderValues(panel, values); // at once, not page by page
    link.Close();
}

} // namespace tarvex
