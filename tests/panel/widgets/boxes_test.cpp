#include "panel/widgets/box_edit.h"
#include "panel/window_test.h"
#include "platform/text/qt_text.h"

#include <QApplication>
#include <QClipboard>

namespace tarvex::tests
{

namespace
{

std::string AllBytes()
{
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

/// A key of any alphabet.
void PressCharacter(QLineEdit& edit, QChar character)
{
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(&edit, &press);
}

TEST(BoxEdit, KeepsAllByteValuesBothWays)
{
    TextBox box;
    panel::BoxEdit edit(box, nullptr);
    box.SetText(AllBytes());
    EXPECT_EQ(edit.text().size(), 256);
    EXPECT_EQ(edit.text(), ToQString(AllBytes()));

    const QString shown = edit.text();
    edit.setText("x");
    EXPECT_EQ(box.Text(), "x");
    edit.setText(shown);
    EXPECT_EQ(box.Text(), AllBytes());
}

TEST(BoxEdit, TakesEveryPrintableCharacterOfTheCodePageFromTheKeyboard)
{
    TextBox box;
    panel::BoxEdit edit(box, nullptr);
    std::string printable;
    for (int code = 0x20; code < 256; ++code) {
        const auto byte = static_cast<char>(code);
        if (ToQString({&byte, 1}).at(0).isPrint()) printable += byte;
    }
    for (const QChar character : ToQString(printable))
        PressCharacter(edit, character);
    EXPECT_EQ(box.Text(), printable);
    EXPECT_GT(printable.size(), 210U);
}

TEST(BoxEdit, IsTiedToItsBoxUntilDetached)
{
    TextBox box;
    {
        panel::BoxEdit edit(box, nullptr);
        edit.setText("a");
    }
    box.SetText("b"); // nobody listens now
    EXPECT_EQ(box.Text(), "b");
}

using Boxes = WindowTest;

TEST_F(Boxes, TypedTextReachesTheModelCutToItsLength)
{
    TypeInto("Text3", "Rossi & Figli");
    EXPECT_EQ(panel.header[Client].Text(), "Rossi & ");
    EXPECT_EQ(Edit("Text3").text(), "Rossi & ");
}

TEST_F(Boxes, ModelTextReachesTheWindow)
{
    panel.header[Client].SetText("CAFF\xC8");
    EXPECT_EQ(Edit("Text3").text(), QString::fromUtf8("CAFFÈ"));
    panel.readAddress.SetText("1D0F0");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Edit("Text17").text() == "1D0F0"; }));
}

TEST_F(Boxes, ACharacterOutsideTheCodePageBecomesAQuestionMarkWhereItWasTyped)
{
    TypeInto("Text3", "ABC");
    Edit("Text3").setCursorPosition(1);
    PressCharacter(Edit("Text3"), QChar(0x03A9)); // a Greek letter
    QTest::keyClicks(&Edit("Text3"), "x");
    EXPECT_EQ(Edit("Text3").text(), "A?xBC");
    EXPECT_EQ(panel.header[Client].Text(), "A?xBC");
}

TEST_F(Boxes, ACharacterOfTwoUnitsBecomesOneQuestionMark)
{
    Enter("Text3");
    QApplication::clipboard()->setText(QString::fromUtf8("a😀b"));
    Edit("Text3").paste();
    EXPECT_EQ(panel.header[Client].Text(), "a?b");
}

TEST_F(Boxes, ALetterWithItsAccentApartIsOneByte)
{
    Enter("Text3");
    QApplication::clipboard()->setText(QString::fromUtf8("caffe\xCC\x80"));
    Edit("Text3").paste();
    EXPECT_EQ(panel.header[Client].Text(), "caff\xE8");
}

TEST_F(Boxes, NulAndCarriageReturnOfTheUnitSurviveAnEditNextToThem)
{
    panel.header[Site].SetText(std::string("A\0B\rC", 5));
    Edit("Text4").setCursorPosition(5);
    QTest::keyClicks(&Edit("Text4"), "D");
    EXPECT_EQ(panel.header[Site].Text(), std::string("A\0B\rCD", 6));
}

TEST(BoxEdit, ShowsATextLaterWhenTheEventQueueRunsAndAnEmptyOneAtOnce)
{
    TextBox box;
    panel::BoxEdit edit(box, nullptr);
    edit.ShowLater();
    box.SetText("ROSSI-dat.dat");
    box.SetText("ROSSI-num.dat");
    EXPECT_EQ(edit.text(), "") << "the unit waits";
    EXPECT_EQ(box.Text(), "ROSSI-num.dat");
    QApplication::processEvents();
    EXPECT_EQ(edit.text(), "ROSSI-num.dat");
    box.SetText("");
    EXPECT_EQ(edit.text(), "");

    box.SetText("gone");
    box.SetText("");
    QApplication::processEvents();
    EXPECT_EQ(edit.text(), "");

    box.SetText("detached");
    edit.Detach();
    QApplication::processEvents();
    EXPECT_EQ(edit.text(), "");
}

TEST_F(Boxes, LockedBoxesTakeNoTyping)
{
    for (const char* name : {"Text1", "Text11", "Text12", "Text15", "Text17"}) {
        QLineEdit& edit = Edit(name);
        const QString before = edit.text();
        QTest::keyClicks(&edit, "9");
        QTest::keyClick(&edit, Qt::Key_Delete);
        EXPECT_TRUE(edit.isReadOnly()) << name;
        EXPECT_EQ(edit.text(), before) << name;
    }
    for (const char* name : {"Text2", "Text13", "numblocco", "Text16rt", "Text4a"})
        EXPECT_FALSE(Edit(name).isReadOnly()) << name;
}

TEST_F(Boxes, EnteringByTabSelectsTheWholeTextSoThatTypingReplacesIt)
{
    Enter("Text3");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Focused(), "Text4");
    EXPECT_EQ(Edit("Text4").selectedText(), "SITE0000");
    QTest::keyClicks(&Edit("Text4"), "diga");
    EXPECT_EQ(panel.header[Site].Text(), "diga");
}

TEST_F(Boxes, EnteringByAClickSelectsTheWholeText)
{
    ClickOn("Text4");
    EXPECT_EQ(Edit("Text4").selectedText(), "SITE0000");
}

TEST_F(Boxes, ASecondClickSetsTheCursor)
{
    ClickOn("Text4");
    ClickOn("Text4");
    EXPECT_EQ(Edit("Text4").selectedText(), "");
}

TEST_F(Boxes, ATrembleOfTheEnteringClickKeepsTheSelectionAndADragMakesItsOwn)
{
    QLineEdit& edit = Edit("Text4");
    const QPoint at(edit.width() - 4, edit.height() / 2);
    const auto move = [&](QPoint to) {
        QMouseEvent event(QEvent::MouseMove, to, edit.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&edit, &event);
    };
    QTest::mousePress(&edit, Qt::LeftButton, {}, at);
    move(at - QPoint(2, 1));
    EXPECT_EQ(edit.selectedText(), "SITE0000");
    move(QPoint(edit.width() / 2, at.y()));
    EXPECT_LT(edit.selectedText().size(), 8);
    EXPECT_GT(edit.selectedText().size(), 0);
    QTest::mouseRelease(&edit, Qt::LeftButton, {}, at);
}

TEST_F(Boxes, EnteringByTheProgramSelectsTheWholeText)
{
    Enter("Text9");
    EXPECT_EQ(Edit("Text9").selectedText(), "+000");
}

TEST_F(Boxes, TheFormStartsInTheBlockNumberWithItsTextSelected)
{
    EXPECT_EQ(Focused(), "Text2");
    EXPECT_EQ(Edit("Text2").selectedText(), "01");
}

TEST_F(Boxes, DoubleClickOnTheTenthsTogglesThem)
{
    QTest::mouseDClick(&Edit("Text13"), Qt::LeftButton);
    EXPECT_EQ(panel.header[DepthTenths].Text(), "5");
    EXPECT_EQ(Edit("Text13").text(), "5");
    QTest::mouseDClick(&Edit("Text13"), Qt::LeftButton);
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
    panel.header[DepthTenths].SetText("");
    QTest::mouseDClick(&Edit("Text13"), Qt::LeftButton);
    EXPECT_EQ(panel.header[DepthTenths].Text(), "0");
    QTest::mouseDClick(&Edit("Text6"), Qt::LeftButton);
    EXPECT_EQ(panel.header[DepthMetres].Text(), "000");
}

} // namespace

} // namespace tarvex::tests
