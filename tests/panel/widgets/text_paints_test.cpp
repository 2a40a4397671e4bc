#include "panel/widgets/text_paints.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

class CountingLabel : public QLabel
{
public:
    using QLabel::QLabel;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QLabel::paintEvent(event);
    }
};

class TextPaintsTest : public ::testing::Test
{
protected:
    TextPaintsTest()
    {
        label.resize(800, 40);
        label.setAlignment(Qt::AlignCenter);
        label.setWordWrap(true);
        new panel::TextPaints(label);
        label.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&label));
    }

    int PaintsOf(const QRect& part)
    {
        QApplication::processEvents(); // what is still to be painted of a change
        label.paints = 0;
        label.repaint(part);
        return label.paints;
    }

    CountingLabel label{"wait"};
};

TEST_F(TextPaintsTest, PaintTheLabelOnlyWhereItHasText)
{
    EXPECT_EQ(PaintsOf(QRect(20, 0, 30, 40)), 0);
    EXPECT_EQ(PaintsOf(QRect(390, 0, 20, 40)), 1);
    EXPECT_EQ(PaintsOf(QRect(700, 0, 100, 40)), 0);
    EXPECT_EQ(PaintsOf(label.rect()), 1);
}

TEST_F(TextPaintsTest, FollowTheTextTheSizeAndTheFont)
{
    EXPECT_EQ(PaintsOf(QRect(300, 0, 20, 40)), 0);
    label.setText(QString(60, 'm'));
    EXPECT_EQ(PaintsOf(QRect(300, 0, 20, 40)), 1);

    label.setText("wait");
    label.resize(620, 40);
    EXPECT_EQ(PaintsOf(QRect(300, 0, 20, 40)), 1);

    label.resize(800, 200);
    EXPECT_EQ(PaintsOf(QRect(300, 0, 20, 200)), 0);
    QFont large = label.font();
    large.setPixelSize(120);
    label.setFont(large);
    EXPECT_EQ(PaintsOf(QRect(300, 0, 20, 200)), 1);
}

/// Strip by strip, as the widget below it changes.
TEST_F(TextPaintsTest, LeaveNoLetterOut)
{
    constexpr int kStrip = 4;
    QFont slanted = label.font();
    slanted.setItalic(true);
    slanted.setPixelSize(30);
    for (const char* text :
         {"wait", "fjord WAIT f", "one line and another that is wrapped below it"}) {
        label.setText(text);
        label.setFont(slanted);
        label.resize(400, 120);
        QApplication::processEvents();
        const QImage whole = label.grab().toImage();
        for (int x = 0; x < label.width(); x += kStrip) {
            const QRect strip(x, 0, kStrip, label.height());
            EXPECT_EQ(label.grab(strip).toImage(), whole.copy(strip)) << text << " at " << x;
        }
    }
}

} // namespace
} // namespace tarvex::tests
