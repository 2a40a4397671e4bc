#include "panel/widgets/rounded_frame.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace tarvex::tests
{
namespace
{

using panel::RoundedFrame;
using Draw = void (&)(QPainter&, const QRect&, const RoundedFrame&);

constexpr QSize kScreen(90, 60);
constexpr QRect kPlace(7, 5, 61, 33);
constexpr QRect kSmallest(7, 5, 13, 13); // that has room for the corners

/// What `draw` leaves on a coloured screen with so many of its pixels for one of the window.
QImage Drawn(Draw draw, const RoundedFrame& frame, qreal scale, const QRect& place)
{
    QImage screen(kScreen * scale, QImage::Format_RGB32);
    screen.setDevicePixelRatio(scale);
    screen.fill(QColor(10, 90, 200));
    QPainter painter(&screen);
    draw(painter, place, frame);
    return screen;
}

/// The largest difference of a pixel's red, green or blue, of 255.
int Difference(const QImage& one, const QImage& other)
{
    int most = one.size() == other.size() ? 0 : 255;
    for (int y = 0; y < one.height() && most < 255; ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb left = one.pixel(x, y);
            const QRgb right = other.pixel(x, y);
            most = std::max({most, std::abs(qRed(left) - qRed(right)),
                             std::abs(qGreen(left) - qGreen(right)),
                             std::abs(qBlue(left) - qBlue(right))});
        }
    }
    return most;
}

constexpr int kRounding = 2; // a kept corner is blended with its ground twice

const std::vector<RoundedFrame> kFrames = {
    {Qt::black, 1},
    {Qt::black, 2},
    {Qt::red, 1, QColor(Qt::white)},
    {Qt::white, 2, QColor(40, 40, 40)},
    {QColor(0, 0, 0, 120), 1, QColor(Qt::white)},
    {Qt::black, 1, QBrush(Qt::white, Qt::Dense4Pattern)},
};

TEST(RoundedFrameTest, LeavesThePixelsOfTheSameFrameStroked)
{
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const RoundedFrame& frame : kFrames) {
            for (const QRect& place : {kPlace, kPlace, kSmallest}) { // the second time as kept
                const QImage stroked = Drawn(panel::StrokeRoundedFrame, frame, scale, place);
                const QImage drawn = Drawn(panel::DrawRoundedFrame, frame, scale, place);
                EXPECT_LE(Difference(drawn, stroked), kRounding)
                    << &frame - kFrames.data() << " at " << scale;
            }
        }
    }
}

TEST(RoundedFrameTest, LeavesThePixelsOfTheSameFrameStrokedWhereItIsTooSmallForCorners)
{
    for (const QRect place : {QRect(3, 3, 12, 30), QRect(3, 3, 30, 12), QRect(3, 3, 5, 5)})
        EXPECT_EQ(Drawn(panel::DrawRoundedFrame, kFrames[2], 1, place),
                  Drawn(panel::StrokeRoundedFrame, kFrames[2], 1, place));
}

TEST(RoundedFrameTest, HasItsEdgeAtTheSideAndItsGroundWithin)
{
    const QImage drawn = Drawn(panel::DrawRoundedFrame, kFrames[2], 1, kPlace);
    EXPECT_EQ(drawn.pixelColor(7, 20), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(30, 20), QColor(Qt::white));
}

} // namespace
} // namespace tarvex::tests
