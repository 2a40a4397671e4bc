#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

std::string DefaultsWithClient(std::string_view client)
{
    return WithClient(client, DefaultRecord(1));
}

/// A text in the block number's box that names none of the thirty.
struct NumberRow {
    const char* name;
    const char* typed;
    double currentBlock;     ///< at the end
    const char* shown;       ///< Text2 at the end
    std::size_t fileRecords; ///< the length of the file at the end
};

class ResetBlockNumberTest : public LogicTest, public ::testing::WithParamInterface<NumberRow>
{
};

TEST_P(ResetBlockNumberTest, KeepsTheClientAndSendsTheClosingFrameAlone)
{
    const NumberRow& row = GetParam();
    OpenOwnTableAt(*this, 3);
    panel.blockNumber.SetText(row.typed);
    boxes.ExpectQuestion(kBlockQuestion, true);

    PressResetBlock(*this);

    EXPECT_THAT(port.sent, ElementsAre("}", "}", "b000F500\r"));
    EXPECT_EQ(world.Now(), 800);
    EXPECT_EQ(state.currentBlock, row.currentBlock);
    EXPECT_EQ(panel.blockNumber.Text(), row.shown);
    EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(DefaultsWithClient("ROSSI_03")));
    std::vector<std::string> stored = StoredTable(*this);
    ASSERT_EQ(stored.size(), row.fileRecords);
    if (stored.size() > 30) {
        EXPECT_EQ(stored.back(), DefaultsWithClient("ROSSI_03"));
    }
    stored.resize(30);
    EXPECT_EQ(stored, OwnTable());
    EXPECT_TRUE(port.IsOpen());
}

INSTANTIATE_TEST_SUITE_P(Texts, ResetBlockNumberTest,
                         ::testing::Values(NumberRow{"Zero", "0", 0, "00", 30},
                                           NumberRow{"Empty", "", 0, "00", 30},
                                           NumberRow{"Half", ".5", 0.5, "01", 30},
                                           NumberRow{"Negative", "-1", -1, "-0", 30},
                                           NumberRow{"ThirtyOne", "31", 31, "31", 31},
                                           NumberRow{"NinetyNine", "99", 99, "99", 99}),
                         RowName());

TEST_F(ResetBlockNumberTest, TakesEveryBlocksOwnDefaults)
{
    OpenOwnTableAt(*this, 3);
    std::vector<std::string> defaults;
    for (int number = 1; number <= 30; ++number) {
        port.sent.clear();
        panel.blockNumber.SetText(std::to_string(number));
        boxes.ExpectQuestion(kBlockQuestion, true);

        PressResetBlock(*this);

        EXPECT_EQ(port.sent[1], HeaderFrame(number - 1, DefaultRecord(number)));
        defaults.push_back(DefaultRecord(number));
    }
    EXPECT_EQ(StoredTable(*this), defaults);
}

} // namespace
} // namespace tarvex::tests
