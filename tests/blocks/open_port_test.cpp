#include "blocks/block_commands.h"

#include "blocks/unit_headers.h"
#include "settings/clock.h"
#include "support/logic_test.h"

#include <algorithm>
#include <cstddef>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// A Reset Block on port 1 has left the port open; the operator has then chosen port 2.
class OpenPortTest : public LogicTest
{
protected:
    OpenPortTest()
    {
        FillUnit(*this);
        panel.blockNumber.SetText("05");
        boxes.ExpectQuestion(kBlockQuestion, true);
        PressResetBlock(*this);
        panel.portOptions.Select(1);
        port.history.clear();
        port.sent.clear();
    }

    std::ptrdiff_t Times(const std::string& step) const
    {
        return std::count(port.history.begin(), port.history.end(), step);
    }
};

TEST_F(OpenPortTest, IsWhatReadBlockWorksOnAndCloses)
{
    PressReadBlock(*this);

    EXPECT_EQ(port.history.front(), "> }");
    EXPECT_EQ(port.history.back(), "close");
    EXPECT_EQ(port.OpenedPort(), 1);
    EXPECT_EQ(panel.header[Client].Text(), "UNIT  05");
    EXPECT_LINK_AT_REST();
}

TEST_F(OpenPortTest, IsWhatSetBlockWorksOnAndCloses)
{
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> " + HeaderFrame(4, DefaultRecord(5)),
                                          "> }", "< !", "> b000F500\r", "close"));
    EXPECT_EQ(port.OpenedPort(), 1);
}

TEST_F(OpenPortTest, IsWhatAnotherResetBlockWorksOnAndLeavesOpen)
{
    boxes.ExpectQuestion(kBlockQuestion, true);
    PressResetBlock(*this);

    EXPECT_EQ(port.history.front(), "> }");
    EXPECT_TRUE(port.IsOpen());
    EXPECT_EQ(port.OpenedPort(), 1);
}

TEST_F(OpenPortTest, IsWhatReadClockWorksOnAndCloses)
{
    unit.answers["H\r"] = "14042310153000";
    ClickLink([&](DeviceLink& link) { ReadClock(&panel.clock, link, view); });

    EXPECT_THAT(port.history, ElementsAre("> }", "< !", "> H\r", "< 14042310153000", "close"));
}

TEST_F(OpenPortTest, IsWhatReadAllBlocksReadsBlock1OnAndTheRestOnTheChosenOne)
{
    unit.onWake = [&](int wake) {
        EXPECT_EQ(port.OpenedPort(), wake <= 2 + 10 ? 1 : 2); // two wakes were the reset's
    };
    PressReadAllBlocks(*this);

    EXPECT_EQ(Times("open"), 29);
    EXPECT_EQ(Times("port 2"), 29);
    EXPECT_EQ(Times("close"), 30);
    EXPECT_EQ(port.history[40], "close") << "ten pages of four steps before";
    EXPECT_LINK_AT_REST();
}

TEST_F(OpenPortTest, HoldsAByteThatCameSinceForTheNextWake)
{
    port.Receive("x");
    unit.onWake = [&](int wake) { unit.latency = wake; }; // the answers come one by one
    boxes.ExpectQuestion(kBlocksQuestion, true);
    PressSetBlock(*this);

    // The stray byte is taken as the first answer; the true one comes too late and is the second's.
    EXPECT_THAT(port.history, ElementsAre("> }", "< x", "> }", "< !", "> b000F500\r", "close"));
}

TEST_F(OpenPortTest, IsClosedByACommandWhoseUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect(kNotConnected);
    PressReadBlock(*this);

    EXPECT_THAT(port.history, ElementsAre("> }", "close"));

    unit.answerWake = [](int) { return "!"; };
    PressReadBlock(*this);
    EXPECT_EQ(port.history[2], "port 2");
    EXPECT_EQ(port.OpenedPort(), 2);
}

} // namespace
} // namespace tarvex::tests
