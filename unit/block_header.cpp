#include "unit/block_header.h"

namespace tarvex::unit
{

namespace
{
constexpr std::string_view kUnusedCalibration = "+1.0000+0.0000+1.0000+0.00000";

void PutPadded(Memory& memory, std::uint32_t address, std::string text, std::size_t width)
{
    text.resize(width, ' ');
    memory.Put(address, text);
}
} // namespace

void PutHeader(Memory& memory, int block, const BlockHeader& header)
{
    const auto base = BlockBase(block);
    for (const auto& place : kHeaderPlaces)
        PutPadded(memory, base + place.page, header.*place.field, place.bytes);
}

BlockHeader UnusedHeader(int block)
{
    BlockHeader header;
    header.client = block < 10 ? "CLIENT " : "CLIENT";
    header.client += std::to_string(block);
    return header;
}

Memory BlankMemory()
{
    Memory memory;
    for (int block = 1; block <= kBlocks; ++block) {
        PutHeader(memory, block, UnusedHeader(block));
        SpreadFields(memory, BlockBase(block), kCalibrationPlaces, kUnusedCalibration);
    }
    return memory;
}

} // namespace tarvex::unit
