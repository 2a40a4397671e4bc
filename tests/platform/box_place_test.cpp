#include "platform/box_place.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using platform::PlaceOfBox;
using platform::Sight;

constexpr QRect kScreen(0, 0, 1920, 1080);
constexpr QRect kWindow(400, 200, 900, 540);
constexpr QSize kBox(400, 120);

bool Covers(QPoint place, const std::vector<Sight>& sights)
{
    for (const Sight& sight : sights)
        if (QRect(place, kBox).intersects(sight.place)) return true;
    return false;
}

TEST(PlaceOfBox, IsTheMiddleOfAWindowWithoutFields)
{
    EXPECT_EQ(PlaceOfBox(kBox, kScreen, kWindow, {}), kWindow.center() - QPoint(199, 59));
}

TEST(PlaceOfBox, StepsAsideAsLittleAsItCan)
{
    const Sight field{{700, 400, 200, 30}};
    const QPoint place = PlaceOfBox(kBox, kScreen, kWindow, {field});
    EXPECT_FALSE(Covers(place, {field}));
    EXPECT_TRUE(kWindow.contains(QRect(place, kBox)));
}

TEST(PlaceOfBox, LeavesTheWindowWhereItIsFullOfFields)
{
    std::vector<Sight> fields;
    for (int y = 210; y < 730; y += 40)
        fields.push_back({{410, y, 880, 30}});
    const QPoint place = PlaceOfBox(kBox, kScreen, kWindow, fields);
    EXPECT_FALSE(Covers(place, fields));
    EXPECT_TRUE(kScreen.contains(QRect(place, kBox)));
}

TEST(PlaceOfBox, StaysOnItsScreenAndCoversLeastWhereThereIsNoRoom)
{
    const QRect small(100, 50, 500, 200);
    const std::vector<Sight> fields = {{{110, 60, 480, 60}}, {{110, 140, 480, 30}}};
    const QPoint place = PlaceOfBox(kBox, small, small, fields);
    EXPECT_TRUE(small.contains(QRect(place, kBox)));
    EXPECT_GT(place.y(), 100) << "the larger field is not the one that is covered";
}

TEST(PlaceOfBox, CoversWhatIsWorthLeastWhereThereIsNoRoom)
{
    const QRect small(100, 50, 500, 200);
    constexpr QSize kLow(400, 60);
    for (const std::size_t spokenOf : {0, 1, 2}) {
        std::vector<Sight> fields;
        for (int y = 60; y < 250; y += 65)
            fields.push_back({{110, y, 480, 40}, 50});
        fields.at(spokenOf).worth = 1000;
        const QRect box(PlaceOfBox(kLow, small, small, fields), kLow);
        EXPECT_FALSE(box.intersects(fields[spokenOf].place)) << spokenOf;
    }
}

} // namespace
} // namespace tarvex::tests
