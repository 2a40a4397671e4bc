#include "panel/paint_counter.h"
#include "panel/palettes.h"
#include "panel/rendered.h"
#include "panel/widgets/wait_ground.h"
#include "panel/window_test.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

namespace tarvex::tests
{
namespace
{

using panel::WaitGround;

constexpr double kLeastText = 4.5;
constexpr double kLeastPart = 3;

struct Desktop {
    std::string name;
    QPalette palette;
};

/// The main form in the palette of one desktop, in the middle of an operation of 200 exchanges.
class WaitGroundLook : public WindowTest, public ::testing::WithParamInterface<Desktop>
{
protected:
    WaitGroundLook()
    {
        QApplication::setPalette(GetParam().palette);
        QApplication::processEvents();
        panel.waitIndicator.Show();
        progress.Begin(200);
    }
    ~WaitGroundLook() override { QApplication::setPalette(QPalette()); }

    void CountTo(int exchanges)
    {
        while (progress.Now().done < exchanges)
            progress.CountExchange();
    }

    QImage Picture() { return Named("Shape1").grab().toImage(); }

    QColor AtMiddle() { return Picture().pixelColor(Picture().rect().center()); }

    ExchangeProgress& progress = panel.waitIndicator.progress;
};

/// How many of the picture's pixels have that colour, from 0 to 1.
double ShareOf(const QColor& colour, const QImage& picture)
{
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, y) == colour) ++found;
    return static_cast<double>(found) / (picture.width() * picture.height());
}

/// The part of the pixels whose brightness is plainly another one in the two pictures: what is left
/// of a difference for someone who sees no colours.
double ShareOtherwiseBright(const QImage& one, const QImage& other)
{
    int found = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (SeenContrast(one.pixelColor(x, y), other.pixelColor(x, y)) >= kLeastPart) ++found;
    return static_cast<double>(found) / (one.width() * one.height());
}

TEST_P(WaitGroundLook, FillsFromTheLeftAsFarAsTheExchangeHasCome)
{
    CountTo(200);
    const QColor filled = AtMiddle();
    const double all = ShareOf(filled, Picture()); // but its border
    EXPECT_GT(all, 0.9);
    progress.End();
    progress.Begin(200);
    for (const int done : {0, 20, 100, 186}) {
        CountTo(done);
        EXPECT_NEAR(ShareOf(filled, Picture()) / all, done / 200.0, 0.01) << done;
    }
    EXPECT_EQ(Picture().pixelColor(Picture().width() / 20, Picture().height() / 2), filled);
}

TEST_P(WaitGroundLook, TellsTheFilledPartFromTheEmptyOneInSunlight)
{
    const QColor empty = AtMiddle();
    CountTo(200);
    const QColor filled = AtMiddle();
    EXPECT_GE(SeenContrast(empty, filled), kLeastPart);
}

TEST_P(WaitGroundLook, ShowsItsTextInSunlightOnBothParts)
{
    EXPECT_GE(Rendered(*window).TextContrast(Named("Label34")), kLeastText);
    CountTo(200);
    EXPECT_GE(Rendered(*window).TextContrast(Named("Label34")), kLeastText);
}

TEST_P(WaitGroundLook, HasABorderThatIsSeenInSunlight)
{
    EXPECT_GE(Rendered(*window).BorderContrast(Named("Shape1")), kLeastPart);
    CountTo(200);
    EXPECT_GE(Rendered(*window).BorderContrast(Named("Shape1")), kLeastPart);
}

TEST_P(WaitGroundLook, ShowsAStallByMoreThanColour)
{
    for (const int done : {0, 100, 199}) {
        CountTo(done);
        const QImage alive = Picture();
        progress.SetStalled(true);
        EXPECT_GE(ShareOtherwiseBright(alive, Picture()), done < 199 ? 0.1 : 0.02) << done;
        progress.SetStalled(false);
        EXPECT_EQ(Picture(), alive) << done;
    }
}

TEST_P(WaitGroundLook, HatchesWhatIsEmptyOfAStalledExchange)
{
    CountTo(100);
    const QColor filled = Picture().pixelColor(20, Picture().height() / 2);
    progress.SetStalled(true);
    const QImage picture = Picture();
    int stripes = 0;
    for (int x = picture.width() / 2 + 5; x < picture.width() - 5; ++x) {
        const bool inside = picture.pixelColor(x, picture.height() / 2) == filled;
        const bool before = picture.pixelColor(x - 1, picture.height() / 2) == filled;
        if (inside && !before) ++stripes;
    }
    EXPECT_GE(stripes, 15);
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, WaitGroundLook,
    ::testing::Values(Desktop{"Light", LightPalette()}, Desktop{"Dark", DarkPalette()},
                      Desktop{"WhiteOnBlack", PlainPalette(Qt::black, Qt::white)},
                      Desktop{"YellowOnBlack", PlainPalette(Qt::black, Qt::yellow)},
                      Desktop{"BlackOnWhite", PlainPalette(Qt::white, Qt::black)}),
    RowName());

class WaitGroundPaints : public WindowTest
{
protected:
    WaitGroundPaints()
    {
        panel.waitIndicator.Show();
        QApplication::processEvents();
    }

    WaitGround& Ground() { return static_cast<WaitGround&>(Named("Shape1")); }

    /// The most paintings that so much time has room for: one at its begin, one at its end.
    static int MostPaints(qint64 milliseconds)
    {
        return static_cast<int>(milliseconds / WaitGround::kMillisecondsBetweenPaints) + 2;
    }

    ExchangeProgress& progress = panel.waitIndicator.progress;
};

TEST_F(WaitGroundPaints, AreFewHoweverFastTheExchangeGoesOn)
{
    const PaintCounter counter(Ground());
    QElapsedTimer time;
    time.start();
    progress.Begin(1'000'000);
    int told = 0;
    for (; time.elapsed() < 1'200; ++told) {
        progress.CountExchange();
        QApplication::processEvents();
    }
    EXPECT_LE(counter.paints, MostPaints(time.elapsed()));
    EXPECT_GE(counter.paints, 2);
    EXPECT_GT(told, 100);
}

TEST_F(WaitGroundPaints, ComeToTheLastChangeSoon)
{
    progress.Begin(10);
    QTest::qWait(WaitGround::kMillisecondsBetweenPaints / 4);
    const PaintCounter counter(Ground());
    for (int done = 0; done < 10; ++done)
        progress.CountExchange();
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints > 0; }));
    QTest::qWait(2 * WaitGround::kMillisecondsBetweenPaints);
    EXPECT_EQ(counter.paints, 1) << "nothing changes any more";
}

TEST_F(WaitGroundPaints, AreNoneForAChangeThatIsNone)
{
    progress.Begin(10);
    QTest::qWait(2 * WaitGround::kMillisecondsBetweenPaints);
    const PaintCounter counter(Ground());
    for (int look = 0; look < 100; ++look)
        progress.SetStalled(false);
    QApplication::processEvents();
    EXPECT_EQ(counter.paints, 0);
}

TEST_F(WaitGroundPaints, CoverOnlyWhatHasBeenFilledSince)
{
    progress.Begin(200);
    QTest::qWait(2 * WaitGround::kMillisecondsBetweenPaints);
    const PaintCounter counter(Ground());
    progress.CountExchange();
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints > 0; }));
    EXPECT_LE(counter.painted.boundingRect().width(), Ground().width() / 50);
    EXPECT_EQ(counter.painted.boundingRect().height(), Ground().height());
}

/// What has come onto the screen piece by piece, against the same painted at once.
TEST_F(WaitGroundPaints, LeaveNothingOnTheScreenOfWhatWasBefore)
{
    const std::vector<std::function<void()>> changes = {[&] { progress.Begin(7); },
                                                        [&] { progress.CountExchange(); },
                                                        [&] { progress.CountExchange(); },
                                                        [&] { progress.SetStalled(true); },
                                                        [&] { progress.SetStalled(false); },
                                                        [&] { progress.Expect(40); },
                                                        [&] { progress.Begin(3); },
                                                        [&] { progress.CountExchange(); },
                                                        [&] { progress.End(); },
                                                        [&] { progress.CountExchange(); },
                                                        [&] { Ground().repaint(0, 0, 9, 9); }};
    for (const auto& change : changes) {
        const PaintCounter counter(Ground());
        change();
        EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints > 0; }));
        const QImage screen = window->screen()->grabWindow(window->winId()).toImage();
        EXPECT_EQ(screen.convertToFormat(QImage::Format_RGB32),
                  window->grab().toImage().convertToFormat(QImage::Format_RGB32))
            << &change - changes.data();
    }
}

TEST_F(WaitGroundPaints, AreTheSameBetweenTheCornersAsOfTheWhole)
{
    progress.Begin(7);
    progress.CountExchange();
    const QRect middle = Ground().rect().adjusted(20, 0, -20, 0);
    const QImage whole = Ground().grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QImage part = Ground().grab(middle).toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(part, whole.copy(middle));
}

TEST_F(WaitGroundPaints, PassesEveryChangeOnAtOnce)
{
    std::vector<int> heard;
    Ground().OnChange([&] { heard.push_back(Ground().Progress().Now().done); });
    progress.Begin(3);
    progress.CountExchange();
    progress.CountExchange();
    EXPECT_EQ(heard, (std::vector{0, 1, 2}));
}

TEST_F(WaitGroundPaints, LeaveTheProgressAloneOnceTheWindowIsGone)
{
    window.reset();
    progress.Begin(3);
    progress.CountExchange();
    EXPECT_EQ(progress.Now().done, 1);
}

} // namespace
} // namespace tarvex::tests
