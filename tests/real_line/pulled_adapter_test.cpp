#include "real_line/pulled_adapter_test.h"

namespace tarvex::tests
{
namespace
{

using unit::Moment;

TEST_F(RealPulledAdapterTest, BeforeACommandItIsAPortThatCannotBeOpened)
{
    adapter.Pull();
    pulled = true;

    AtPanel().Click("Command3");

    EXPECT_EQ(AtPanel().Text("Text3"), "");
    EXPECT_TRUE(boxes.texts.isEmpty());
    ExpectAsBefore();
}

TEST_F(RealPulledAdapterTest, AtTheFirstWakeItIsAUnitThatDoesNotAnswer)
{
    PullAt({"", Moment::Woken, 1, 0});

    AtPanel().Click("Command3");

    EXPECT_EQ(boxes.texts, QStringList{kNotConnected});
    EXPECT_EQ(AtPanel().Text("Text3"), "DELVALLE");
    ExpectAsBefore();
}

TEST_F(RealPulledAdapterTest, WithThePortOpenBetweenTwoCommandsThePortIsLetGo)
{
    AtPanel().Type("Text2", "03");
    AtPanel().Click("Command7");
    ASSERT_TRUE(HasPortOpen());
    boxes.texts.clear();

    adapter.Pull();
    pulled = true;

    EXPECT_TRUE(WaitFor([this] { return IsLetGo(); }, 30'000));
    AtPanel().Click("Command3");
    EXPECT_EQ(boxes.texts, QStringList{kNotConnected});
    ExpectAsBefore();
}

} // namespace
} // namespace tarvex::tests
