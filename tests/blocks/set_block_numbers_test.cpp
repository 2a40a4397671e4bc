#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// A text in the block number's box, and what Set Block makes of it. The panel shows record 3.
struct NumberRow {
    const char* name;
    const char* typed;
    double currentBlock;  ///< at the end
    const char* shown;    ///< Text2 at the end
    int sentBlock;        ///< whose header goes out, 0 for none
    std::string reloaded; ///< the record on the panel at the end
};

std::string Blank()
{
    return std::string(77, ' ');
}

class SetBlockNumberTest : public LogicTest, public ::testing::WithParamInterface<NumberRow>
{
};

TEST_P(SetBlockNumberTest, SendsOnlyToOneOfTheThirtyAndShowsWhatTheNumberNames)
{
    const NumberRow& row = GetParam();
    OpenOwnTableAt(*this, 3);
    panel.blockNumber.SetText(row.typed);
    boxes.ExpectQuestion(kBlocksQuestion, true);

    PressSetBlock(*this);

    if (row.sentBlock == 0) {
        EXPECT_THAT(port.sent, ElementsAre("}", "}", "b000F500\r"));
    } else {
        EXPECT_THAT(port.sent,
                    ElementsAre("}", HeaderFrame(row.sentBlock - 1, OwnRecord(row.sentBlock)), "}",
                                "b000F500\r"));
    }
    EXPECT_EQ(world.Now(), 800) << "both settle waits run, whatever went out";
    EXPECT_EQ(state.currentBlock, row.currentBlock);
    EXPECT_EQ(panel.blockNumber.Text(), row.shown);
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(row.reloaded));
    EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(row.reloaded));
    EXPECT_EQ(StoredTable(*this), OwnTable());
    EXPECT_LINK_AT_REST();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SetBlockNumberTest,
    ::testing::Values(NumberRow{"OneDigit", "5", 5, "05", 5, OwnRecord(5)},
                      NumberRow{"Thirty", "30", 30, "30", 30, OwnRecord(30)},
                      NumberRow{"TrailingPoint", "5.", 5, "05", 5, OwnRecord(5)},
                      NumberRow{"LeadingBlank", " 8", 8, "08", 8, OwnRecord(8)},
                      NumberRow{"DigitThenLetter", "9x", 9, "09", 9, OwnRecord(9)},
                      // The record of 0 cannot be got: what was stored from the panel stays.
                      NumberRow{"Zero", "00", 0, "00", 0, OwnRecord(3)},
                      NumberRow{"Empty", "", 0, "00", 0, OwnRecord(3)},
                      NumberRow{"NoNumber", "a5", 0, "00", 0, OwnRecord(3)},
                      // One past the end of the file is a record of blanks.
                      NumberRow{"ThirtyOne", "31", 31, "31", 0, Blank()},
                      NumberRow{"NinetyNine", "99", 99, "99", 0, Blank()},
                      // Half a block is shown rounded, and the rounded number is the one reloaded.
                      NumberRow{"Half", ".5", 1, "01", 0, OwnRecord(1)},
                      NumberRow{"LessThanHalf", ".4", 0, "00", 0, OwnRecord(3)},
                      // "-01" does not fit the box.
                      NumberRow{"Negative", "-1", 0, "-0", 0, OwnRecord(3)}),
    RowName());

TEST_F(SetBlockNumberTest, WalksOverAFractionWithoutAHeaderFrame)
{
    OpenOwnTableAt(*this, 3);
    panel.blockNumber = TextBox(3, "2.5");
    boxes.ExpectQuestion(kBlocksQuestion, true);

    PressSetBlock(*this);

    EXPECT_THAT(port.sent, ElementsAre("}", "}", "b000F500\r"));
    EXPECT_EQ(world.Now(), 800);
}

} // namespace
} // namespace tarvex::tests
