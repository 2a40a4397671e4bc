#pragma once

#include "unit/block_header.h"
#include "unit/memory.h"
#include "unit/mishaps.h"

#include <cstdint>

namespace tarvex::unit
{

/// A survey of one tube: its description and the number that its readings are drawn from. The same
/// survey always gives the same readings.
struct Survey {
    BlockHeader header;
    std::uint32_t seed = 1;
    Mishaps mishaps = {};
};

/// Number of pages that a survey fills: one for each depth from the bottom up, 240 at most. With a
/// step of 0.5 m the last depth is 0.5 m or more, with 1 m it is above 0.
int PageCount(const BlockHeader& header);

/// Fills a block (1 to 30): header, then one page a depth from BB100 upward, deepest first, in the
/// order A1 B1 A3 B3 A2 B2 A4 B4. The tube leans and bends smoothly, with one shear zone; the
/// opposite face of each guide pair reads the same with the other sign but for a few counts. With
/// two guides the last four words stay zero. Pages that the survey does not need are cleared.
void FillBlock(Memory& memory, int block, const Survey& survey);

/// A unit in the middle of a campaign: block 1 with two guides, 30.0 m at 0.5 m; block 2 with four
/// guides, 40.0 m at 1 m; block 3 full, 100.0 m at 0.5 m, two guides; the others never used.
Memory DemoMemory();

} // namespace tarvex::unit
