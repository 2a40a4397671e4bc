#include "blocks/read_block.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class ReadBlockTest : public LogicTest
{
protected:
    void Read()
    {
        ClickLink([&](DeviceLink& link) { ReadBlock(panel, state, link); });
    }
};

const std::vector<std::string> kDam = {"ROSSI   ", "DIGA A  ", "T12 ", "1250",     "1",
                                       "4",        "+015",     "03",   "161126AB", "093015CD"};

TEST_F(ReadBlockTest, FillsThePanelFromTheTenPagesOfTheBlock)
{
    unit.SetHeader(10, kDam);
    panel.Text2.SetText("11");

    Read();

    EXPECT_THAT(port.sent,
                ElementsAre("}", "a0A000\r", "}", "a0A010\r", "}", "a0A020\r", "}", "a0A030\r", "}",
                            "a0A040\r", "}", "a0A050\r", "}", "a0A060\r", "}", "a0A070\r", "}",
                            "a0A080\r", "}", "a0A090\r"));
    EXPECT_EQ(panel.Text3.Text(), "ROSSI   ");
    EXPECT_EQ(panel.Text6.Text(), "125");
    EXPECT_EQ(panel.Text13.Text(), "0");
    EXPECT_EQ(panel.Text11.Text(), "161126");
    EXPECT_EQ(panel.Text12.Text(), "093015");
    EXPECT_EQ(panel.Text17.Text(), "0A090");
    EXPECT_EQ(state.BlockHeader, DefaultHeader(0));
    EXPECT_LINK_AT_REST();
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadBlockTest, SaysNotConnectedAndLeavesThePanelWhenTheUnitIsSilent)
{
    unit.answerWake = [](int) { return ""; };
    boxes.Expect("Attention: TAR--VEX not connected");

    Read();

    EXPECT_THAT(port.history, ElementsAre("port 1", "open", "> }", "close"));
    EXPECT_EQ(panel.Text3.Text(), "CLIENT 1");
    EXPECT_EQ(world.Now(), 600);
    EXPECT_LINK_AT_REST();
}

TEST_F(ReadBlockTest, WaitsForEverInAPageAndEndsWithTheProgram)
{
    unit.answerRead = [](int read, const std::string& reply) { return read < 3 ? reply : ""; };
    world.EndProgramAt(60'000);

    Read();

    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_EQ(world.Now(), 60'000);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(panel.Label34.Visible());
}

} // namespace
} // namespace tarvex::tests
