#include "survey/window/window_test.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace tarvex::survey
{
namespace
{

/// The plots on view, and a mouse in the middle of the first.
class MouseOnPlots : public WindowTest
{
protected:
    MouseOnPlots()
    {
        window_.Open({folder_.Path()});
        window_.show();
        QTest::qWait(50);
        whole_ = Depth(0);
        values_ = Values();
        middle_ = Plot().axisRect(0)->rect().center();
    }

    QCPRange Depth(int rect) { return Plot().axisRect(rect)->axis(QCPAxis::atLeft)->range(); }
    QCPRange Values() { return Plot().axisRect(0)->axis(QCPAxis::atBottom)->range(); }

    void Turn(int eighthsOfADegree)
    {
        QWheelEvent event(middle_, Plot().mapToGlobal(middle_), {}, QPoint(0, eighthsOfADegree),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Plot(), &event);
    }

    void Drag(QPoint by)
    {
        QTest::mousePress(&Plot(), Qt::LeftButton, {}, middle_);
        QTest::mouseMove(&Plot(), middle_ + by / 2);
        QTest::mouseMove(&Plot(), middle_ + by);
        QTest::mouseRelease(&Plot(), Qt::LeftButton, {}, middle_ + by);
    }

    QCPRange whole_;
    QCPRange values_;
    QPoint middle_;
};

TEST_F(MouseOnPlots, ZoomsByItsWheelInBothChannels)
{
    Turn(120);
    EXPECT_LT(Depth(0).size(), whole_.size());
    EXPECT_LT(Values().size(), values_.size());
    EXPECT_EQ(Depth(0), Depth(1));
    Turn(-120);
    EXPECT_NEAR(Depth(0).size(), whole_.size(), 1e-6);
    EXPECT_NEAR(Depth(0).lower, whole_.lower, 0.1);
}

TEST_F(MouseOnPlots, MovesThePlotWhereItIsDragged)
{
    const auto* const axis = Plot().axisRect(0)->axis(QCPAxis::atLeft);
    const double before = axis->pixelToCoord(middle_.y());
    Drag({40, 60});
    EXPECT_NEAR(axis->pixelToCoord(middle_.y() + 60), before, 0.01) << "it stays under the mouse";
    EXPECT_NEAR(Depth(0).size(), whole_.size(), 1e-6);
    EXPECT_LT(Values().lower, values_.lower);
    EXPECT_EQ(Depth(0), Depth(1));
}

TEST_F(MouseOnPlots, ShowsAllAgainByADoubleClick)
{
    Turn(120);
    Drag({40, 60});
    ASSERT_NE(Depth(0), whole_);
    QTest::mouseDClick(&Plot(), Qt::LeftButton, {}, middle_);
    QTest::mouseRelease(&Plot(), Qt::LeftButton, {}, middle_); // else it is held from here on
    EXPECT_EQ(Depth(0), whole_);
    EXPECT_EQ(Values(), values_);
}

TEST_F(MouseOnPlots, PointsToADepthOnlyWhileNothingIsDragged)
{
    const auto text = [&] { return Find<QLabel>("values").text(); };
    QTest::mouseMove(&Plot(), middle_ - QPoint(0, 20));
    QTest::mouseMove(&Plot(), middle_);
    ASSERT_TRUE(QTest::qWaitFor([&] { return text().startsWith(QStringLiteral("Depth ")); }));
    const auto pointed = text();
    Drag({0, 60});
    EXPECT_EQ(text(), pointed);
}

} // namespace
} // namespace tarvex::survey
