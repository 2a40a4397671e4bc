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

/// A window with a box that a command writes into again and again.
class PaintPauseTest : public ::testing::Test
{
protected:
    PaintPauseTest()
    {
        edit.setReadOnly(true);
        window.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(2 * PaintPause::kMillisecondsBetweenPaints);
    }

    /// An address after the other, each seen by the event queue.
    void Write(int times)
    {
        for (int count = 0; count < times; ++count) {
            box.SetText(std::to_string(++address_));
            EXPECT_EQ(edit.text().toInt(), address_);
            QApplication::processEvents();
        }
    }

    TextBox box;
    QWidget window;
    BoxEdit edit{box, &window};

private:
    int address_ = 10'000;
};

TEST_F(PaintPauseTest, PaintsTheFirstOfManyChangesAtOnce)
{
    const PaintCounter counter(edit);
    Write(1);
    EXPECT_EQ(counter.paints, 1);
}

TEST_F(PaintPauseTest, PaintsManyChangesAFewTimesASecond)
{
    const PaintCounter counter(edit);
    QElapsedTimer time;
    time.start();
    Write(200);
    EXPECT_LE(counter.paints, 1 + time.elapsed() / PaintPause::kMillisecondsBetweenPaints);
}

TEST_F(PaintPauseTest, PaintsTheLastChangeWhenNoMoreCome)
{
    Write(1);
    const PaintCounter counter(edit);
    Write(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.paints == 1; }));
}

TEST_F(PaintPauseTest, IsNoHoleInAPictureOfTheWindow)
{
    box.SetText("");
    const QImage empty = window.grab(edit.geometry()).toImage();
    Write(5);
    const QImage written = window.grab(edit.geometry()).toImage();
    const QPoint frame(0, written.height() / 2);
    EXPECT_NE(written, empty);
    EXPECT_EQ(written.pixelColor(frame), empty.pixelColor(frame));
}

TEST_F(PaintPauseTest, LeavesABoxThatTheOperatorTypesIntoAlone)
{
    edit.setReadOnly(false);
    const PaintCounter counter(edit);
    Write(10);
    EXPECT_EQ(counter.paints, 10);
}

} // namespace
} // namespace tarvex::tests
