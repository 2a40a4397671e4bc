#include "link/header_pages.h"

#include "core/conversion.h"

namespace tarvex
{

namespace
{

void ReadHeaderPage(DeviceLink& link, Panel& panel, const WorkingState& state,
                    const HeaderPage& page, HeaderValues& values)
{
    ReadPage(link, panel, state);
    if (page.clearedBefore) {
        DecodePageText(link.Reply(), page.byteCount, values.*page.value);
    } else {
        DecodePageCharacter(link.Reply(), values.*page.value);
    }
}

} // namespace

bool ReadHeaderPages(DeviceLink& link, Panel& panel, WorkingState& state, const HeaderPages& pages,
                     HeaderValues& values)
{
    for (const HeaderPage& page : pages) {
        state.ReadAddrBank = '0';
        state.ReadAddrPage = page.page;
        if (&page != &pages.front()) {
            link.UntimedWake();
        } else if (!link.TimedWake()) {
            return false;
        }
        if (link.AnsweredReady()) ReadHeaderPage(link, panel, state, page, values);
    }
    return true;
}

void ShowHeaderValues(Panel& panel, const HeaderValues& values)
{
    panel.Text3.SetText(values.cliente);
    panel.Text4.SetText(values.cantiere);
    panel.Text5.SetText(values.tubo);
    panel.Text6.SetText(Middle(values.profondità, 1, 3));
    panel.Text13.SetText(Middle(values.profondità, 4, 1));
    panel.Text7.SetText(values.passo);
    panel.Text8.SetText(values.guide);
    panel.Text9.SetText(values.nord);
    panel.Text10.SetText(values.nlet);
    panel.Text11.SetText(values.data);
    panel.Text12.SetText(values.ora);
}

} // namespace tarvex
