#include "core/header_boxes.h"

#include "core/control_panel.h"
#include "support/logic_test.h"

#include <cmath>
#include <cstring>

namespace tarvex::tests
{
namespace
{

TEST(HeaderBoxes, RowsAreInTheOrderOfTheBoxes)
{
    for (std::size_t index = 0; index < kHeaderBoxes.size(); ++index)
        EXPECT_EQ(static_cast<std::size_t>(kHeaderBoxes[index].box), index);
    for (std::size_t index = 0; index < kCalibrationBoxes.size(); ++index)
        EXPECT_EQ(static_cast<std::size_t>(kCalibrationBoxes[index].box), index);
}

TEST(HeaderBoxes, WidthsMakeTheLengthsOfTheTwoFrames)
{
    std::size_t header = 0;
    for (const auto& row : kHeaderBoxes)
        header += row.width;
    EXPECT_EQ(header, 44U);
    std::size_t calibration = 0;
    for (const auto& row : kCalibrationBoxes)
        calibration += row.width;
    EXPECT_EQ(calibration, 29U);
}

TEST(HeaderBoxes, ShowEveryFieldOfTheRecordOnceAndWithinItsWidth)
{
    BlockHeader marked{};
    for (const auto& row : kHeaderBoxes)
        SetText(marked, row.field, std::string(WidthOf(row.field), 'x'));
    for (const auto& row : kCalibrationBoxes)
        SetText(marked, row.field, std::string(WidthOf(row.field), 'x'));
    BlockHeader whole;
    std::memset(static_cast<void*>(&whole), 'x', sizeof whole);
    EXPECT_EQ(marked, whole);

    for (const auto& row : kHeaderBoxes)
        EXPECT_LE(row.first - 1 + row.width, WidthOf(row.field)) << row.control;
}

TEST(HeaderBoxes, AreReadFromTenPagesInOrder)
{
    std::string pages;
    for (const auto& row : kHeaderBoxes)
        if (row.first == 1) pages += std::string(row.page) + " ";
    EXPECT_EQ(pages, "00 10 20 30 40 50 60 70 80 90 ");
    EXPECT_EQ(RowOf(DepthTenths).page, RowOf(DepthMetres).page);
}

TEST(HeaderBoxes, JoinInTheOrderOfAFrame)
{
    ControlPanel panel;
    LoadHeader(panel.header, DefaultHeader(10));
    LoadCalibration(panel.calibration, DefaultHeader(10));
    EXPECT_EQ(Joined(panel.header), "CLIENT11SITE0000T   000002+00000DDMMYYhhmmss");
    EXPECT_EQ(Joined(panel.calibration), "+1.0000+0.0000+1.0000+0.00000");
}

TEST(HeaderBoxes, KeepNoMoreOfATextThanTheyHold)
{
    HeaderTexts texts;
    for (auto& text : texts.things)
        text = "123456789";
    ControlPanel panel;
    ShowHeader(panel.header, texts);
    for (const auto& row : kHeaderBoxes)
        EXPECT_EQ(panel.header[row.box].Text(), std::string("123456789").substr(0, row.width));
}

TEST(BlockWithIndex, IsOneOfTheThirtyOrNone)
{
    for (int index = 0; index < 30; ++index)
        EXPECT_EQ(BlockWithIndex(index), index);
    for (const double other : {-1.0, 30.0, 0.5, 29.5, -0.5, 1e300, std::nan("")})
        EXPECT_EQ(BlockWithIndex(other), std::nullopt) << other;
    EXPECT_EQ(BlockWithIndex(-0.0), 0);
}

} // namespace
} // namespace tarvex::tests
