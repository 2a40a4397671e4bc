#include "link/memory_page.h"

#include "core/block_header.h"
#include "core/conversion.h"
#include "core/failure_rule.h"

namespace tarvex
{

void SetReadBlock(WorkingState& state, std::string_view indexText)
{
    for (int index = 0; index < kBlockCount; ++index) {
        if (indexText == TwoDigits(index)) state.ReadAddrBlock = TwoHexDigits(index);
    }
}

std::string ReadAddress(const WorkingState& state)
{
    return state.ReadAddrBlock + state.ReadAddrBank + state.ReadAddrPage;
}

void ReadPage(DeviceLink& link, Panel& panel, const WorkingState& state)
{
    panel.Text17.SetText(ReadAddress(state));
    link.SendFrame('a' + ReadAddress(state));
    link.AwaitReply(kPageReplyLength);
}

void DecodePageText(std::string_view reply, int byteCount, std::string& field)
{
    field.clear();
    for (int index = 0; index < byteCount; ++index) {
        Attempt([&] { field += HexPair(Middle(reply, PositionOfByte(index), 2)); });
    }
}

void DecodePageCharacter(std::string_view reply, std::string& field)
{
    Attempt([&] { field = HexPair(Middle(reply, PositionOfByte(0), 2)); });
}

} // namespace tarvex
