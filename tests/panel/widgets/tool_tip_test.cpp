#include "panel/widgets/look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QToolTip>

namespace tarvex::tests
{

namespace
{

const QString kOutsideText = QStringLiteral("/srv/<b>a & b</b> &lt;1\nnot opened");

class EveryToolTip : public ::testing::Test
{
protected:
    EveryToolTip() { panel::DressProgram(); }
    ~EveryToolTip() override
    {
        QToolTip::hideText();
        delete Shown(); // at once: the toolkit would wait
    }

    static QLabel* Shown()
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->inherits("QTipLabel")) return static_cast<QLabel*>(window);
        return nullptr;
    }

    /// What is seen of the tip is what a label of plain text shows.
    static void ExpectShown(const QString& text)
    {
        QLabel* tip = Shown();
        ASSERT_NE(tip, nullptr);
        EXPECT_EQ(tip->text(), text);
        const QImage seen = tip->grab().toImage();
        tip->setTextFormat(Qt::PlainText);
        EXPECT_EQ(seen, tip->grab().toImage());
    }

    /// As when the pointer rests on it.
    static void AskFor(QWidget& widget, QPoint at)
    {
        QHelpEvent help(QEvent::ToolTip, at, widget.mapToGlobal(at));
        QApplication::sendEvent(&widget, &help);
    }
};

TEST_F(EveryToolTip, ShowsAControlsTextAsItIs)
{
    QLabel control("control");
    control.setToolTip(kOutsideText);
    control.show();
    AskFor(control, control.rect().center());
    ExpectShown(kOutsideText);
}

TEST_F(EveryToolTip, ShowsTheTextOfAListsRowAsItIs)
{
    QListWidget list;
    list.addItem("row");
    list.item(0)->setToolTip(kOutsideText);
    list.show();
    AskFor(*list.viewport(), list.visualItemRect(list.item(0)).center());
    ExpectShown(kOutsideText);
}

TEST_F(EveryToolTip, ShowsTheTextThatTheProgramPutsUpAsItIs)
{
    QToolTip::showText({}, kOutsideText);
    ExpectShown(kOutsideText);
}

} // namespace

} // namespace tarvex::tests
