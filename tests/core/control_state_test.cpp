#include "core/control_state.h"

#include "support/logic_test.h"

#include <stdexcept>

namespace tarvex::tests
{
namespace
{

TEST(TextBox, CutsWhatIsAssignedAtItsMaximumLength)
{
    TextBox box(6);
    box.SetText("161126AB");
    EXPECT_EQ(box.Text(), "161126");
    box.SetText("12");
    EXPECT_EQ(box.Text(), "12");
    box.SetText("");
    EXPECT_EQ(box.Text(), "");
}

TEST(TextBox, CutsItsInitialTextToo)
{
    EXPECT_EQ(TextBox(2, "012").Text(), "01");
}

TEST(TextBox, CountsBytesAndKeepsNulAndControlCharacters)
{
    TextBox box(4);
    box.SetText(std::string("\0\r\xE0\0zz", 6));
    EXPECT_EQ(box.Text(), std::string("\0\r\xE0\0", 4));
}

TEST(TextBox, WithoutAMaximumKeepsAll)
{
    TextBox box;
    box.SetText(std::string(5000, 'x'));
    EXPECT_EQ(box.Text().size(), 5000U);
}

TEST(TextBox, CallsItsWatcherAtEveryAssignment)
{
    TextBox box(2);
    std::vector<std::string> seen;
    box.Watch([&] { seen.push_back(box.Text()); });
    box.SetText("012");
    box.SetText("01");
    EXPECT_THAT(seen, ::testing::ElementsAre("01", "01"));
}

TEST(Control, CallsItsWatcherAtEveryChange)
{
    Control control(false, true);
    int changes = 0;
    control.Watch([&] { ++changes; });
    control.Show();
    EXPECT_TRUE(control.Visible());
    control.Disable();
    EXPECT_FALSE(control.Enabled());
    control.Hide();
    EXPECT_FALSE(control.Visible());
    control.Enable();
    EXPECT_TRUE(control.Enabled());
    EXPECT_EQ(changes, 4);
}

TEST(OptionGroup, RunsItsClickAtEverySelectionAfterTheChange)
{
    OptionGroup group;
    EXPECT_EQ(group.Selected(), -1);
    std::vector<int> clicks;
    group.OnClick([&](int index) {
        EXPECT_EQ(group.Selected(), index);
        clicks.push_back(index);
    });
    group.Select(0);
    group.Select(0);
    group.Select(3);
    EXPECT_THAT(clicks, ::testing::ElementsAre(0, 0, 3));
}

TEST(Watched, RefusesASecondWatcherUntilTheFirstIsGone)
{
    Control control;
    int first = 0;
    control.Watch([&] { ++first; });
    EXPECT_THROW(control.Watch([] { FAIL() << "the second watcher ran"; }), std::logic_error);
    control.Hide();
    EXPECT_EQ(first, 1);

    control.Unwatch();
    int second = 0;
    control.Watch([&] { ++second; });
    control.Show();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

} // namespace
} // namespace tarvex::tests
