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
    PutPadded(memory, base + 0x00, header.client, 8);
    PutPadded(memory, base + 0x10, header.site, 8);
    PutPadded(memory, base + 0x20, header.tube, 4);
    PutPadded(memory, base + 0x30, header.depth, 4);
    PutPadded(memory, base + 0x40, header.step, 1);
    PutPadded(memory, base + 0x50, header.guides, 1);
    PutPadded(memory, base + 0x60, header.north, 4);
    PutPadded(memory, base + 0x70, header.nlet, 2);
    PutPadded(memory, base + 0x80, header.date, 8);
    PutPadded(memory, base + 0x90, header.time, 8);
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
