#include "blocks/block_commands.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::IsEmpty;

/// What waiting events see of a command between two of its steps, and what they can change there.
/// The panel shows record 3 of the own table; the operator has then typed block 7.
class EventPassTest : public LogicTest
{
protected:
    EventPassTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.blockNumber.SetText("07");
    }

    /// Runs `event` in the first pass after those that are over at `moment`.
    void InThePassAfter(Milliseconds moment, std::function<void()> event)
    {
        world.At(moment, [this, event = std::move(event)] {
            world.After(0, [this, event] {
                ++seen_;
                event();
            });
        });
    }

    void HideIndicator()
    {
        panel.waitIndicator.label.Hide();
        panel.waitIndicator.ground.Hide();
    }

    void ExpectIndicatorAtWake(int number)
    {
        unit.onWake = [this, number](int wake) {
            if (wake != number) return;
            EXPECT_TRUE(panel.waitIndicator.label.Visible());
            EXPECT_TRUE(panel.waitIndicator.ground.Visible());
        };
    }

    int seen_ = 0;
};

TEST_F(EventPassTest, SetBlockShowsTheIndicatorAgainWhenItWasHiddenAfterTheHeader)
{
    InThePassAfter(400, [&] { HideIndicator(); });
    ExpectIndicatorAtWake(2);
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);

    EXPECT_EQ(seen_, 1);
}

TEST_F(EventPassTest, TotalResetShowsTheIndicatorAgainWhenItWasHiddenAfterTheHeaders)
{
    InThePassAfter(12'000, [&] { HideIndicator(); });
    ExpectIndicatorAtWake(31);
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressTotalReset(*this);

    EXPECT_EQ(seen_, 1);
}

TEST_F(EventPassTest, SetBlockShowsTheNumberBeforeItsRecord)
{
    InThePassAfter(0, [&] {
        EXPECT_EQ(state.currentBlock, 7);
        EXPECT_EQ(state.blockHeader, StoredHeader(7));
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(3)));
        EXPECT_THAT(port.history, IsEmpty());
    });
    panel.blockNumber.SetText("7");
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);

    EXPECT_EQ(seen_, 1);
}

TEST_F(EventPassTest, SetAllShowsEachNumberBeforeItsRecord)
{
    InThePassAfter(200, [&] {
        EXPECT_EQ(panel.blockNumber.Text(), "02");
        EXPECT_EQ(HeaderOnPanel(*this), HeaderPayload(OwnRecord(1)));
    });
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressSetAll(*this);

    EXPECT_EQ(seen_, 1);
}

TEST_F(EventPassTest, ResetOfGainAndZeroShowsTheDefaultsBeforeTheFirstWake)
{
    InThePassAfter(0, [&] {
        EXPECT_TRUE(port.IsOpen());
        EXPECT_EQ(CalibrationOnPanel(*this), "+1.0000+0.0000+1.0000+0.00000");
        EXPECT_THAT(port.sent, IsEmpty());
        EXPECT_EQ(state.currentBlock, 3) << "not yet the counter";
    });
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    PressResetGainZero(*this);

    EXPECT_EQ(seen_, 1);
}

TEST_F(EventPassTest, TheEndIsSeenWithThePortClosedAndTheIndicatorHidden)
{
    // In the last pass Set All has not yet gone back to block 1, and Total Reset has.
    InThePassAfter(6'200, [&] {
        EXPECT_LINK_AT_REST();
        EXPECT_EQ(panel.blockNumber.Text(), "30");
    });
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressSetAll(*this);
    EXPECT_EQ(seen_, 1);

    InThePassAfter(6'200 + 12'400, [&] {
        EXPECT_LINK_AT_REST();
        EXPECT_EQ(panel.blockNumber.Text(), "01");
    });
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressTotalReset(*this);
    EXPECT_EQ(seen_, 2);
}

} // namespace
} // namespace tarvex::tests
