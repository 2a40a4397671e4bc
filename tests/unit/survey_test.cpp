#include "unit/fill_text.h"
#include "unit/survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

namespace tarvex::unit
{
namespace
{

/// The reading of a word, and whether it is there at all.
int ReadingAt(const Memory& memory, std::uint32_t address)
{
    const int word = memory.At(address) * 256 + memory.At(address + 1);
    return (word & 0x8000) != 0 ? word - 0x8000 : -word;
}

/// Reading of a column (0 A1, 1 B1, 2 A3, 3 B3, 4 A2, 5 B2, 6 A4, 7 B4) in a page of a block.
int Reading(const Memory& memory, int block, int page, int column)
{
    return ReadingAt(memory, BlockBase(block) + 0x100U +
                                 static_cast<std::uint32_t>(16 * page + 2 * column));
}

std::string Fields(const Memory& memory, int block)
{
    const auto base = BlockBase(block);
    std::string fields;
    for (const auto& [page, width] : {std::pair{0x00U, 8U},
                                      {0x10U, 8U},
                                      {0x20U, 4U},
                                      {0x30U, 4U},
                                      {0x40U, 1U},
                                      {0x50U, 1U},
                                      {0x60U, 4U},
                                      {0x70U, 2U},
                                      {0x80U, 8U},
                                      {0x90U, 8U}})
        fields += memory.Text(base + page, width) + "|";
    return fields;
}

BlockHeader HeaderOf(std::string depth, std::string step)
{
    BlockHeader header;
    header.depth = std::move(depth);
    header.step = std::move(step);
    return header;
}

TEST(BlankMemory, HoldsThirtyUnusedHeadersAndNoData)
{
    const auto memory = BlankMemory();
    EXPECT_EQ(Fields(memory, 1), "CLIENT 1|SITE0000|T   |0000|0|2|+000|00|DDMMYY  |hhmmss  |");
    EXPECT_EQ(Fields(memory, 9), "CLIENT 9|SITE0000|T   |0000|0|2|+000|00|DDMMYY  |hhmmss  |");
    EXPECT_EQ(Fields(memory, 10), "CLIENT10|SITE0000|T   |0000|0|2|+000|00|DDMMYY  |hhmmss  |");
    EXPECT_EQ(Fields(memory, 30), "CLIENT30|SITE0000|T   |0000|0|2|+000|00|DDMMYY  |hhmmss  |");
    for (int block = 1; block <= kBlocks; ++block)
        EXPECT_EQ(memory.Text(BlockBase(block) + 0xF0, 0xF10), std::string(0xF10, '\0')) << block;
}

TEST(BlankMemory, HoldsTheUnusedCalibration)
{
    const auto memory = BlankMemory();
    EXPECT_EQ(memory.Text(0x1D0A0, 7), "+1.0000");
    EXPECT_EQ(memory.Text(0x1D0B0, 7), "+0.0000");
    EXPECT_EQ(memory.Text(0x1D0C0, 7), "+1.0000");
    EXPECT_EQ(memory.Text(0x1D0D0, 7), "+0.0000");
    EXPECT_EQ(memory.Text(0x1D0E0, 2), std::string("0\0", 2));
}

TEST(PutHeader, PadsAndCutsToTheWidths)
{
    Memory memory;
    PutHeader(memory, 2, {"A", "123456789", "", "12345", "0", "2", "+1", "003", "1", "123456789"});
    EXPECT_EQ(Fields(memory, 2), "A       |12345678|    |1234|0|2|+1  |00|1       |12345678|");
    EXPECT_EQ(memory.At(0x01008), 0);
    EXPECT_EQ(memory.At(0x01018), 0);
}

TEST(PageCount, IsOneADepthDownToTheStep)
{
    EXPECT_EQ(PageCount(HeaderOf("0000", "0")), 0);
    EXPECT_EQ(PageCount(HeaderOf("0004", "0")), 0);
    EXPECT_EQ(PageCount(HeaderOf("0005", "0")), 1);
    EXPECT_EQ(PageCount(HeaderOf("0015", "0")), 3);
    EXPECT_EQ(PageCount(HeaderOf("0103", "0")), 20);
    EXPECT_EQ(PageCount(HeaderOf("1000", "0")), 200);
    EXPECT_EQ(PageCount(HeaderOf("1200", "0")), 240);
    EXPECT_EQ(PageCount(HeaderOf("1500", "0")), 240);
}

TEST(PageCount, GoesOnToARemainderWithAStepOfOneMetre)
{
    EXPECT_EQ(PageCount(HeaderOf("0000", "1")), 0);
    EXPECT_EQ(PageCount(HeaderOf("0003", "1")), 1);
    EXPECT_EQ(PageCount(HeaderOf("0103", "1")), 11);
    EXPECT_EQ(PageCount(HeaderOf("0100", "1")), 10);
    EXPECT_EQ(PageCount(HeaderOf("2000", "1")), 200);
}

TEST(PageCount, OfADepthThatIsNoNumberIsNone)
{
    EXPECT_EQ(PageCount(HeaderOf("abcd", "0")), 0);
    EXPECT_EQ(PageCount(HeaderOf("", "1")), 0);
}

class DemoSurvey : public testing::TestWithParam<int>
{
protected:
    const Memory memory_ = DemoMemory();
    const int block_ = GetParam();
    const bool four_ = memory_.Text(BlockBase(block_) + 0x50, 1) == "4";
    const int pages_ = PageCount(HeaderOf(memory_.Text(BlockBase(block_) + 0x30, 4),
                                          memory_.Text(BlockBase(block_) + 0x40, 1)));
};

TEST_P(DemoSurvey, ReadsTheOppositeOnTheOtherFaceButForAFewCounts)
{
    for (int page = 0; page < pages_; ++page)
        for (const int column : {0, 1, 4, 5}) {
            const int sum =
                Reading(memory_, block_, page, column) + Reading(memory_, block_, page, column + 2);
            EXPECT_LE(std::abs(sum), 30) << "page " << page << " column " << column;
        }
}

TEST_P(DemoSurvey, ChangesSmoothlyFromDepthToDepth)
{
    for (int page = 1; page < pages_; ++page)
        for (int column = 0; column < (four_ ? 8 : 4); ++column) {
            const int change =
                Reading(memory_, block_, page, column) - Reading(memory_, block_, page - 1, column);
            EXPECT_LE(std::abs(change), 300) << "page " << page << " column " << column;
        }
}

TEST_P(DemoSurvey, IsNotTheSameAtAllDepths)
{
    int lowest = 0x7FFF;
    int highest = -0x7FFF;
    for (int page = 0; page < pages_; ++page) {
        lowest = std::min(lowest, Reading(memory_, block_, page, 0));
        highest = std::max(highest, Reading(memory_, block_, page, 0));
    }
    EXPECT_GT(highest - lowest, 100);
    EXPECT_LT(std::max(std::abs(lowest), std::abs(highest)), 3'000);
}

TEST_P(DemoSurvey, FillsTheWordsOfItsGuidesInEachPageAndNoMore)
{
    for (int page = 0; page < pages_; ++page) {
        const auto address = BlockBase(block_) + 0x100U + static_cast<std::uint32_t>(16 * page);
        for (std::uint32_t word = 0; word < 8; ++word) {
            const auto text = memory_.Text(address + 2 * word, 2);
            if (word < 4 || four_)
                EXPECT_NE(text, std::string(2, '\0')) << "page " << page << " word " << word;
            else
                EXPECT_EQ(text, std::string(2, '\0')) << "page " << page << " word " << word;
        }
    }
    const auto end = 0x100U + static_cast<std::uint32_t>(16 * pages_);
    EXPECT_EQ(memory_.Text(BlockBase(block_) + end, kBlockBytes - end),
              std::string(kBlockBytes - end, '\0'));
}

INSTANTIATE_TEST_SUITE_P(Blocks, DemoSurvey, testing::Values(1, 2, 3));

TEST(DemoMemory, HoldsThreeSurveysAndUnusedBlocks)
{
    const auto memory = DemoMemory();
    EXPECT_EQ(Fields(memory, 1), "DELVALLE|FRANA 02|T01 |0300|0|2|+045|03|120426  |093015  |");
    EXPECT_EQ(Fields(memory, 2), "DELVALLE|FRANA 02|T02 |0400|1|4|-010|03|120426  |111540  |");
    EXPECT_EQ(Fields(memory, 3), "COMUNE  |DIGA 1  |I3  |1000|0|2|+270|11|130426  |081200  |");
    const auto blank = BlankMemory();
    for (int block = 4; block <= kBlocks; ++block)
        EXPECT_EQ(memory.Text(BlockBase(block), kBlockBytes),
                  blank.Text(BlockBase(block), kBlockBytes))
            << block;
}

TEST(DemoMemory, FillsTheFullBlockToItsTwoHundredthPage)
{
    const auto memory = DemoMemory();
    EXPECT_NE(memory.Text(0x02D70, 8), std::string(8, '\0'));
    EXPECT_EQ(memory.Text(0x02D80, 16), std::string(16, '\0'));
}

TEST(FillBlock, GivesTheSameReadingsForTheSameSeedAndOthersForAnother)
{
    const auto header = HeaderOf("0100", "0");
    Memory once;
    Memory again;
    Memory other;
    FillBlock(once, 5, {header, 7});
    FillBlock(again, 5, {header, 7});
    FillBlock(other, 5, {header, 8});
    EXPECT_EQ(once, again);
    EXPECT_NE(once, other);
}

TEST(FillBlock, ClearsTheReadingsOfALongerSurveyAndLeavesTheCalibration)
{
    auto memory = DemoMemory();
    FillBlock(memory, 3, {HeaderOf("0005", "0"), 1});
    EXPECT_NE(memory.Text(0x02100, 8), std::string(8, '\0'));
    EXPECT_EQ(memory.Text(0x02110, 0xEF0), std::string(0xEF0, '\0'));
    EXPECT_EQ(memory.Text(0x020A0, 7), "+1.0000");
}

TEST(FillBlock, TouchesNoOtherBlock)
{
    Memory memory(std::string(kMemoryBytes, '\xA5'));
    FillBlock(memory, 2, {HeaderOf("1200", "0"), 1});
    EXPECT_EQ(memory.Text(0, 0x1000), std::string(0x1000, '\xA5'));
    EXPECT_EQ(memory.Text(0x02000, 0x1000), std::string(0x1000, '\xA5'));
}

TEST(FillBlock, OfNoBlockFails)
{
    Memory memory;
    EXPECT_THROW(FillBlock(memory, 31, {}), std::out_of_range);
    EXPECT_EQ(memory, Memory());
}

TEST(ParseFill, OfABareBlockIsAUsualSurvey)
{
    const auto fill = ParseFill("7");
    EXPECT_EQ(fill.block, 7);
    EXPECT_EQ(fill.survey.seed, 7U);
    Memory memory;
    FillBlock(memory, fill.block, fill.survey);
    EXPECT_EQ(Fields(memory, 7), "COMUNE  |PENDIO 1|T7  |0200|0|2|+000|01|140426  |100000  |");
}

TEST(ParseFill, TakesEverySetting)
{
    const auto fill = ParseFill("30:client=ROSSI=X,site=,tube=A 1,depth=25.5,step=1,guides=4,"
                                "north=-090,nlet=26,date=311299,time=235959,seed=99");
    Memory memory;
    FillBlock(memory, fill.block, fill.survey);
    EXPECT_EQ(Fields(memory, 30), "ROSSI=X |        |A 1 |0255|1|4|-090|26|311299  |235959  |");
    EXPECT_EQ(fill.survey.seed, 99U);
}

TEST(ParseFill, TurnsMetresIntoTenths)
{
    EXPECT_EQ(ParseFill("1:depth=0").survey.header.depth, "0000");
    EXPECT_EQ(ParseFill("1:depth=0.5").survey.header.depth, "0005");
    EXPECT_EQ(ParseFill("1:depth=100").survey.header.depth, "1000");
    EXPECT_EQ(ParseFill("1:depth=200.0").survey.header.depth, "2000");
    EXPECT_EQ(ParseFill("1:step=0.5").survey.header.step, "0");
}

/// Readings of a column over all pages of a block filled so; deepest first.
std::vector<int> ColumnOf(const std::string& fill, int column)
{
    const auto parsed = ParseFill(fill);
    Memory memory;
    FillBlock(memory, parsed.block, parsed.survey);
    std::vector<int> readings;
    for (int page = 0; page < PageCount(parsed.survey.header); ++page)
        readings.push_back(Reading(memory, parsed.block, page, column));
    return readings;
}

TEST(Mishaps, FreezeGuideOneForTwoMoreDepthsOnly)
{
    const auto usual = ColumnOf("1:depth=10", 0);
    auto expected = usual;
    expected[9] = expected[10] = usual[8]; // 6.0 m is page 8
    EXPECT_EQ(ColumnOf("1:depth=10,frozen=6", 0), expected);
    EXPECT_EQ(ColumnOf("1:depth=10,frozen=6", 2), ColumnOf("1:depth=10", 2));
}

TEST(Mishaps, RaiseOneReadingByASpike)
{
    auto expected = ColumnOf("1:depth=10", 0);
    expected[8] += 300;
    EXPECT_EQ(ColumnOf("1:depth=10,spike=6", 0), expected);
}

TEST(Mishaps, ExchangeTheGuidesAtOneDepth)
{
    auto first = ColumnOf("1:depth=10", 1);
    auto third = ColumnOf("1:depth=10", 3);
    std::swap(first[8], third[8]);
    EXPECT_EQ(ColumnOf("1:depth=10,swapped=6", 1), first);
    EXPECT_EQ(ColumnOf("1:depth=10,swapped=6", 3), third);
}

TEST(Mishaps, LeaveADepthUnread)
{
    auto expected = ColumnOf("1:depth=10,guides=4", 7);
    expected[8] = 0;
    EXPECT_EQ(ColumnOf("1:depth=10,guides=4,unread=6", 7), expected);
}

TEST(Mishaps, ReadTheThirdGuideLikeTheFirstWithoutATurn)
{
    const auto first = ColumnOf("1:unturned=1", 0);
    const auto third = ColumnOf("1:unturned=1", 2);
    ASSERT_EQ(first.size(), third.size());
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_LE(std::abs(first[i] - third[i]), 4);
}

TEST(Mishaps, DriftTheZeroOfTheThirdGuideUpTheTube)
{
    const auto usual = ColumnOf("1:depth=10", 2);
    const auto drifted = ColumnOf("1:depth=10,drift=40", 2);
    EXPECT_EQ(drifted.front(), usual.front());
    EXPECT_EQ(drifted[10], usual[10] + 20); // half way
    EXPECT_EQ(drifted.back(), usual.back() + 38);
    EXPECT_EQ(ColumnOf("1:depth=10,drift=40", 0), ColumnOf("1:depth=10", 0));
}

TEST(Mishaps, MoveTheTubeByItsShearFromReadoutToReadout)
{
    const auto usual = ColumnOf("1:depth=20", 0);
    const auto moved = ColumnOf("1:depth=20,moved=3", 0);
    ASSERT_EQ(usual.size(), moved.size());
    int sheared = 0;
    for (std::size_t i = 0; i < usual.size(); ++i) {
        const int shear = 3 * ShearCounts(200 - static_cast<int>(i) * 5, 200);
        EXPECT_LE(std::abs(moved[i] - usual[i] - shear), 4) << i;
        sheared += shear > 0 ? 1 : 0;
    }
    EXPECT_EQ(sheared, 9); // 6.0 to 10.0 m
    EXPECT_NE(ColumnOf("1:depth=20,moved=1", 0), ColumnOf("1:depth=20,moved=2", 0));
}

TEST(ParseFill, RefusesEverythingElse)
{
    for (const auto* text : {"",
                             "0",
                             "31",
                             "x",
                             "-1",
                             " 1",
                             "1.5",
                             "1x",
                             ":depth=1",
                             "1:depth",
                             "1:foo=1",
                             "1:depth=",
                             "1:depth=x",
                             "1:depth=200.1",
                             "1:depth=1.55",
                             "1:depth=1.",
                             "1:depth=.5",
                             "1:depth=99999999999",
                             "1:step=2",
                             "1:step=0",
                             "1:guides=3",
                             "1:seed=x",
                             "1:seed=-1",
                             "1:depth=1,,guides=4",
                             "1:spike=x",
                             "1:frozen=200.1",
                             "1:unturned=2",
                             "1:drift=-1",
                             "1:drift=1001",
                             "1:moved=26",
                             "1:Depth=1"})
        EXPECT_THROW(ParseFill(text), std::invalid_argument) << text;
}

} // namespace
} // namespace tarvex::unit
