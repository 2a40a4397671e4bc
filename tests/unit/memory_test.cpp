#include "unit/memory.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tarvex::unit
{
namespace
{

TEST(Memory, OfThirtyBlocksStartsAsZeros)
{
    const Memory memory;
    EXPECT_EQ(memory.Image(), std::string(122'880, '\0'));
}

TEST(Memory, KeepsBytesOfAllValuesAtTheirAddress)
{
    Memory memory;
    memory.Put(0x1D090, std::string("\x00\x7F\x80\xFF", 4));
    EXPECT_EQ(memory.Text(0x1D08F, 6), std::string("\x00\x00\x7F\x80\xFF\x00", 6));
    EXPECT_EQ(memory.At(0x1D093), 0xFF);
}

TEST(Memory, ReadsAsZerosWhereNoneIs)
{
    Memory memory;
    memory.Put(0x1DFF8, "ABCDEFGH");
    EXPECT_EQ(memory.At(0x1E000), 0);
    EXPECT_EQ(memory.At(0xFFFFF), 0);
    const Page across{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(memory.PageAt(0xFFFF8), across);
}

TEST(Memory, FillsAPageAcrossItsEndWithZeros)
{
    Memory memory;
    memory.Put(0x1DFF8, "ABCDEFGH");
    const Page page{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(memory.PageAt(0x1DFF8), page);
}

TEST(Memory, LosesWhatIsPutBeyondItsEnd)
{
    Memory memory;
    memory.Put(0x1DFFE, "ABCD");
    EXPECT_EQ(memory.Text(0x1DFFE, 4), std::string("AB\0\0", 4));
    EXPECT_EQ(memory.Image().size(), kMemoryBytes);
    memory.Put(0x1E000, "A");
    memory.Put(0xFFFFF, "A");
    EXPECT_EQ(memory.Image().size(), kMemoryBytes);
    EXPECT_EQ(memory.At(0x1E000), 0);
}

TEST(Memory, ComesBackFromItsImage)
{
    Memory memory;
    memory.Put(0x0A123, "reading");
    EXPECT_EQ(Memory(memory.Image()), memory);
}

TEST(Memory, RefusesAnImageOfAnotherLength)
{
    EXPECT_THROW(Memory(std::string(kMemoryBytes - 1, '\0')), std::invalid_argument);
    EXPECT_THROW(Memory(std::string(kMemoryBytes + 1, '\0')), std::invalid_argument);
}

TEST(BlockBase, LiesAThousandHexadecimalApartFromZero)
{
    EXPECT_EQ(BlockBase(1), 0x00000U);
    EXPECT_EQ(BlockBase(11), 0x0A000U);
    EXPECT_EQ(BlockBase(17), 0x10000U);
    EXPECT_EQ(BlockBase(30), 0x1D000U);
}

TEST(BlockBase, OfNoBlockFails)
{
    EXPECT_THROW(BlockBase(0), std::out_of_range);
    EXPECT_THROW(BlockBase(31), std::out_of_range);
    EXPECT_THROW(BlockBase(-1), std::out_of_range);
}

} // namespace
} // namespace tarvex::unit
