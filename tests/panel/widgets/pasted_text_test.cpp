#include "panel/widgets/one_line.h"
#include "panel/window_test.h"

#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>

namespace tarvex::tests
{

namespace
{

constexpr const char* kCell = "ROSSI\nVIA ROMA";

void Drop(QWidget& widget, const QString& text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &drop);
}

void CommitByInputMethod(QWidget& widget, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&widget, &event);
}

void PasteFromMenu(QLineEdit& edit)
{
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    for (QAction* action : menu->actions())
        if (action->text().contains("Paste")) return action->trigger();
    FAIL() << "no entry to paste by";
}

class PastedText : public WindowTest
{
protected:
    static void Copy(const QString& text) { QGuiApplication::clipboard()->setText(text); }

    void PasteInto(const std::string& name, const QString& text)
    {
        Copy(text);
        TypeInto(name, "");
        QTest::keyClick(&Edit(name), Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(PastedText, IsCutAtItsFirstLineEnd)
{
    for (const char16_t lineEnd : {u'\n', u'\r', u'\v', u'\f', u'\u0085', u'\u2028', u'\u2029'}) {
        PasteInto("Text4", "VIA" + QString(QChar(lineEnd)) + "2" + QString(QChar(lineEnd)));
        EXPECT_EQ(panel.header[Site].Text(), "VIA") << static_cast<int>(lineEnd);
    }
}

TEST_F(PastedText, IsCutHoweverItComes)
{
    Copy(kCell);
    TypeInto("Text3", "");
    PasteFromMenu(Edit("Text3"));
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI");

    panel.header[Client].SetText("");
    QTest::keyClick(&Edit("Text3"), Qt::Key_Insert, Qt::ShiftModifier);
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI");

    panel.header[Client].SetText("");
    CommitByInputMethod(Edit("Text3"), kCell);
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI");

    panel.header[Client].SetText("");
    Drop(Edit("Text3"), kCell);
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI");
}

TEST_F(PastedText, IsCutInEveryBoxThatTakesTyping)
{
    for (const auto* edit : window->findChildren<QLineEdit*>()) {
        if (edit->isReadOnly() || !edit->isEnabled()) continue;
        const std::string name = edit->objectName().toStdString();
        const QString before = edit->text();
        TypeInto(name, "");
        Drop(Edit(name), "7\n8");
        EXPECT_EQ(Edit(name).text(), "7") << name;
        Edit(name).setText(before); // no rule warns of it
    }
}

TEST_F(PastedText, KeepsWhatIsAroundIt)
{
    TypeInto("Text4", "ABCD");
    Edit("Text4").setCursorPosition(2);
    Copy("X\r\nY");
    QTest::keyClick(&Edit("Text4"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(panel.header[Site].Text(), "ABXCD");
    EXPECT_EQ(Edit("Text4").cursorPosition(), 3);
    Edit("Text4").setSelection(0, 3);
    Copy("\nZ");
    QTest::keyClick(&Edit("Text4"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(panel.header[Site].Text(), "CD");
}

TEST_F(PastedText, DoesNotCutWhatAUnitSent)
{
    panel.header[Site].SetText("A\nB");
    Enter("Text4");
    Edit("Text4").setCursorPosition(1);
    Copy("\nX");
    QTest::keyClick(&Edit("Text4"), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(panel.header[Site].Text(), "A\nB");
    QTest::keyClicks(&Edit("Text4"), "C");
    EXPECT_EQ(panel.header[Site].Text(), "AC\nB");
}

TEST_F(PastedText, MayBeTakenBackAndPutInAgain)
{
    QLineEdit edit;
    panel::KeepToOneLine(edit);
    edit.insert("AB");
    edit.insert("CD");
    edit.undo();
    EXPECT_EQ(edit.text(), "");
    edit.redo();
    EXPECT_EQ(edit.text(), "ABCD");
    edit.insert("E\nF");
    EXPECT_EQ(edit.text(), "ABCDE");
}

TEST_F(PastedText, DroppedIntoAnotherFieldLeavesTheFirstAndIsLeftItself)
{
    TypeInto("Text6", "5");
    panel.header[Tube].SetText("");
    Drop(Edit("Text5"), "t1");
    EXPECT_EQ(panel.header[DepthMetres].Text(), "005");
    EXPECT_EQ(Focused(), "Text5");
    ClickOn("Command11");
    EXPECT_EQ(panel.header[Tube].Text(), "T1  ");
}

} // namespace

} // namespace tarvex::tests
