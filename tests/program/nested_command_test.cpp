#include "program/program_test.h"

namespace tarvex::tests
{
namespace
{

class NestedCommandTest : public ProgramTest
{
};

TEST_F(NestedCommandTest, ASecondReadBlockInsideAnEndlessWaitEndsTheFirst)
{
    Start({"--fault", "silent@page1"});
    AtPanel().ClickLater("Command3", 300);

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_FALSE(program->End().Ended());
    EXPECT_FALSE(AtPanel().IsShown("Label34"));
}

TEST_F(NestedCommandTest, ClosingInsideANestedCommandEndsBothWithoutAFurtherStep)
{
    Start({"--fault", "silent@page1+"});
    AtPanel().ClickLater("Command3", 200);
    CloseAfter(500);

    AtPanel().Click("Command3");

    EXPECT_TRUE(program->End().Ended());
    EXPECT_EQ(AtPanel().Text("Text3"), "CLIENT 1");
    EXPECT_TRUE(boxes.texts.isEmpty());
}

} // namespace
} // namespace tarvex::tests
