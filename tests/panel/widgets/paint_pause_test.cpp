#include "panel/paint_counter.h"
#include "panel/widgets/box_edit.h"
#include "panel/window_test.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QtTest>

namespace tarvex::tests
{
namespace
{

using panel::BoxEdit;
using panel::PaintPause;

/// A box that has just changed whenever a timer runs out, as quick or slow as the machine may be.
class ChangeBeforeEachTimer : public QObject
{
public:
    explicit ChangeBeforeEachTimer(TextBox& box) : box_(box) { qApp->installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Timer) box_.SetText(std::to_string(++changes_));
        return false;
    }

private:
    TextBox& box_;
    int changes_ = 0;
};

/// A window with a box that a command writes into again and again.
class PaintPauseTest : public ::testing::Test
{
protected:
    PaintPauseTest()
    {
        edit.setReadOnly(true);
        edit.Pace();
        window.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(2 * PaintPause::kMillisecondsBetweenPaints);
    }

    /// An address after the other, each seen by the event queue.
    void Write(int times)
    {
        for (int count = 0; count < times; ++count) {
            box.SetText(std::to_string(++address_));
            QApplication::processEvents();
        }
    }

    TextBox box;
    QWidget window;
    BoxEdit edit{box, &window};

private:
    int address_ = 10'000;
};

TEST_F(PaintPauseTest, ShowsTheFirstOfManyChangesSoonButNotAtOnce)
{
    const PaintCounter counter(edit);
    QElapsedTimer time;
    time.start();
    box.SetText("1D090");
    EXPECT_EQ(edit.text(), "") << "the next request goes out first";
    QApplication::processEvents();
    EXPECT_TRUE(edit.text().isEmpty() || time.hasExpired(PaintPause::kMillisecondsAfterChange - 1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == "1D090"; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints == 1; }));
}

TEST_F(PaintPauseTest, PaintsManyChangesAFewTimesASecond)
{
    const PaintCounter counter(edit);
    QElapsedTimer time;
    time.start();
    Write(200);
    EXPECT_LE(counter.paints, 1 + time.elapsed() / PaintPause::kMillisecondsBetweenPaints);
}

TEST_F(PaintPauseTest, ShowsWhatHasChangedInSeveralBoxesAtOnce)
{
    TextBox second;
    BoxEdit other(second, &window);
    other.Pace();
    Write(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == "10001"; }));
    second.SetText("other"); // to be shown after a whole pause
    QTest::qWait(PaintPause::kMillisecondsBetweenPaints / 4);
    box.SetText("1D090");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !other.text().isEmpty(); }));
    EXPECT_EQ(edit.text(), "1D090");
}

TEST_F(PaintPauseTest, ShowsChangesThatLeaveTheEventsNoPause)
{
    ChangeBeforeEachTimer changes(box);
    Write(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !edit.text().isEmpty(); }));
}

TEST_F(PaintPauseTest, PaintsTheLastChangeWhenNoMoreCome)
{
    const PaintCounter counter(edit);
    Write(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == "10001"; }));
    Write(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == "10002"; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints == 2; }));
}

TEST_F(PaintPauseTest, IsNoHoleInAPictureOfTheWindow)
{
    box.SetText("");
    const QImage empty = window.grab(edit.geometry()).toImage();
    Write(5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return edit.text() == "10005"; }));
    const QImage written = window.grab(edit.geometry()).toImage();
    const QPoint frame(0, written.height() / 2);
    EXPECT_NE(written, empty);
    EXPECT_EQ(written.pixelColor(frame), empty.pixelColor(frame));
}

TEST_F(PaintPauseTest, LeavesABoxWithoutAPaceAlone)
{
    TextBox typed;
    const BoxEdit other(typed, nullptr);
    for (const char* text : {"a", "b", "c"}) {
        typed.SetText(text);
        EXPECT_EQ(other.text(), text);
    }
}

TEST_F(PaintPauseTest, ShowsNothingAnyMoreWhenTheBoxIsParted)
{
    box.SetText("1D090");
    edit.Detach();
    QTest::qWait(2 * PaintPause::kMillisecondsBetweenPaints);
    EXPECT_EQ(edit.text(), "");
}

} // namespace
} // namespace tarvex::tests
