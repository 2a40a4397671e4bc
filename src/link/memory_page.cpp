#include "link/memory_page.h"

#include "core/block_header.h"
#include "core/conversion.h"
#include "core/failure_rule.h"

#include <cmath>

namespace tarvex
{

void SetReadBlock(WorkingState& state, double blockNumber)
{
    if (blockNumber < 1) return; // also where it would round to the first block
    if (const auto index = BlockWithIndex(std::round(blockNumber - 1)))
        state.readAddrBlock = TwoHexDigits(*index);
}

std::string ReadAddress(const WorkingState& state)
{
    return state.readAddrBlock + state.readAddrBank + state.readAddrPage;
}

void ReadPage(DeviceLink& link, TextBox& addressShown, const WorkingState& state)
{
    addressShown.SetText(ReadAddress(state));
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
