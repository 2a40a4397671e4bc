#include "link/header_pages.h"

#include "core/conversion.h"

namespace tarvex
{

namespace
{

/// Divides the text of a page among the boxes that show it: the metres of a depth end where its
/// tenths begin, any other text goes on to the end.
void TakePage(std::string_view page, std::string_view text, HeaderTexts& texts)
{
    for (const auto& row : kHeaderBoxes) {
        const bool ends = row.box == HeaderBox::DepthMetres;
        if (row.page == page)
            texts[row.box] = Middle(text, row.first, ends ? row.width : std::string_view::npos);
    }
}

void DecodeHeaderPage(std::string_view reply, const BoxRow<HeaderBox>& row, int byteCount,
                      HeaderTexts& texts)
{
    if (byteCount == 1) return DecodePageCharacter(reply, texts[row.box]);
    std::string text;
    DecodePageText(reply, byteCount, text);
    TakePage(row.page, text, texts);
}

} // namespace

bool ReadHeaderPages(DeviceLink& link, TextBox& addressShown, WorkingState& state,
                     HeaderTexts& texts, int timeBytes)
{
    for (const auto& row : kHeaderBoxes) {
        if (row.first != 1) continue; // the second box of a page that has been read
        state.readAddrBank = '0';
        state.readAddrPage = row.page;
        if (row.box != HeaderBox::Client) {
            link.UntimedWake();
        } else if (!link.TimedWake()) {
            return false;
        }
        if (!link.AnsweredReady()) continue;
        ReadPage(link, addressShown, state);
        const int width = static_cast<int>(WidthOf(row.field));
        DecodeHeaderPage(link.Reply(), row, row.box == HeaderBox::Time ? timeBytes : width, texts);
    }
    return true;
}

} // namespace tarvex
