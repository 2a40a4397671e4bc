#include "core/panel.h"

#include "support/logic_test.h"

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

TEST(TextBox, TellsItsWatcherOfEveryAssignment)
{
    TextBox box(2);
    std::vector<std::string> seen;
    box.Watch([&] { seen.push_back(box.Text()); });
    box.SetText("012");
    box.SetText("01");
    EXPECT_THAT(seen, ::testing::ElementsAre("01", "01"));
}

TEST(Control, TellsItsWatcherOfEveryChange)
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

TEST(Panel, BoxesHaveTheirMaximumLengths)
{
    const Panel panel;
    const std::vector<std::pair<const TextBox*, std::size_t>> lengths = {
        {&panel.Text2, 2},  {&panel.Text3, 8},    {&panel.Text4, 8},  {&panel.Text5, 4},
        {&panel.Text6, 3},  {&panel.Text13, 1},   {&panel.Text7, 1},  {&panel.Text8, 1},
        {&panel.Text9, 4},  {&panel.Text10, 2},   {&panel.Text11, 6}, {&panel.Text12, 6},
        {&panel.Text18, 7}, {&panel.Text19, 7},   {&panel.Text20, 7}, {&panel.Text21, 7},
        {&panel.Text22, 1}, {&panel.numblocco, 2}};
    for (const auto& [box, length] : lengths)
        EXPECT_EQ(box->MaximumLength(), length);
}

TEST(Panel, HidesTheCalibrationAndTheHeaderFilesPath)
{
    const Panel panel;
    for (const TextBox* box : {&panel.Text15, &panel.Text18, &panel.Text19, &panel.Text20,
                               &panel.Text21, &panel.Text22}) {
        EXPECT_FALSE(box->Visible());
    }
}

TEST(Panel, StartsAtRest)
{
    const Panel panel;
    EXPECT_FALSE(panel.Label34.Visible());
    EXPECT_FALSE(panel.Shape1.Visible());
    EXPECT_FALSE(panel.command3d1.Enabled());
    EXPECT_FALSE(panel.sscommand9.Enabled());
    EXPECT_FALSE(panel.sscommand10.Enabled());
    EXPECT_EQ(panel.Text2.Text(), "01");
    EXPECT_EQ(panel.numblocco.Text(), "01");
    EXPECT_EQ(panel.Text8.Text(), "2");
    EXPECT_EQ(panel.Text13.Text(), "0");
    EXPECT_EQ(panel.Text16rt.Text(), "3");
}

} // namespace
} // namespace tarvex::tests
