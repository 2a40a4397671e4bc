#include "panel/survey/form5_test.h"

#include <QApplication>
#include <QClipboard>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <vector>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

TEST_F(Form5Test, TheKeyboardStartsInTheFirstMark)
{
    EXPECT_EQ(QApplication::focusWidget(), &Grid());
    EXPECT_EQ(CurrentRow(), 0);
    EXPECT_EQ(CurrentField(), "b");
}

TEST_F(Form5Test, TypingADigitEditsTheMarkAndEnterCommitsIt)
{
    Type("12");
    EXPECT_TRUE(IsEditing());
    EXPECT_EQ(Mark(0), Value());
    Type(Qt::Key_Return);
    EXPECT_EQ(Mark(0), "12");
    EXPECT_EQ(Cell(0, "b"), "12");
    EXPECT_EQ(QApplication::focusWidget(), &Grid());
}

TEST_F(Form5Test, APastedMarkIsCutAtItsFirstLineEnd)
{
    QGuiApplication::clipboard()->setText("12\nROSSI\n");
    Type(Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    Type(Qt::Key_Return);
    EXPECT_EQ(Cell(0, "b"), "12");
}

TEST_F(Form5Test, F2AndEnterEditWhatIsThere)
{
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        Type(key);
        ASSERT_TRUE(IsEditing());
        Type(Qt::Key_End);
        Type("1");
        Type(Qt::Key_Return);
    }
    EXPECT_EQ(Mark(0), "111");
}

TEST_F(Form5Test, TheArrowsUpAndDownLeaveTheMarkAndTakeTheNextOne)
{
    Type("1");
    Type(Qt::Key_Down);
    EXPECT_EQ(Mark(0), "1");
    EXPECT_EQ(CurrentRow(), 1);
    Type("2");
    Type(Qt::Key_Down);
    Type("3");
    Type(Qt::Key_Up);
    EXPECT_EQ(CurrentRow(), 1);
    EXPECT_THAT((std::vector{Mark(0), Mark(1), Mark(2)}), ElementsAre("1", "2", "3"));
}

TEST_F(Form5Test, TabLeavesTheMarkForTheNextCell)
{
    Type("7");
    Type(Qt::Key_Tab);
    EXPECT_EQ(Mark(0), "7");
    EXPECT_EQ(CurrentRow(), 0);
    EXPECT_EQ(CurrentField(), "cliente");
    EXPECT_FALSE(IsEditing());
}

TEST_F(Form5Test, TabLeadsOutOfTheGrid)
{
    Type(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Control<QPushButton>("Form5", "ssCommand2"));
}

TEST_F(Form5Test, EscapeLeavesTheMarkAsItWas)
{
    Type("7");
    Type(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Mark(0), Value());
    Type(Qt::Key_Escape);
    EXPECT_TRUE(Window("Form5").isVisible());
}

TEST_F(Form5Test, AnEmptiedMarkIsEmptyText)
{
    Type("7");
    Type(Qt::Key_Return);
    Type(Qt::Key_F2);
    Type(Qt::Key_Delete);
    Type(Qt::Key_Return);
    EXPECT_EQ(Mark(0), "");
}

TEST_F(Form5Test, ADigitInAnyCellOfTheRowGoesToItsMark)
{
    GoTo(2, "nord");
    Type("9");
    Type(Qt::Key_Return);
    EXPECT_EQ(Mark(2), "9");
    EXPECT_EQ(Cell(2, "nord"), "+015");
}

TEST_F(Form5Test, NoOtherCellCanBeEdited)
{
    GoTo(1, "cliente");
    Type("x");
    EXPECT_FALSE(IsEditing());
    DoubleClick(1, "cliente");
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Cell(1, "cliente"), "ROSSI   ");
}

TEST_F(Form5Test, ADoubleClickEditsAMarkWhetherItIsTheCurrentOneOrNot)
{
    DoubleClick(0, "b");
    EXPECT_TRUE(IsEditing());
    Type("1");
    DoubleClick(1, "b");
    EXPECT_TRUE(IsEditing());
    Type("2");
    Type(Qt::Key_Return);
    EXPECT_THAT((std::vector{Mark(0), Mark(1)}), ElementsAre("1", "2"));
}

TEST_F(Form5Test, ItsButtonCommitsTheOpenEditAndUnloads)
{
    Type("8");
    ASSERT_TRUE(IsEditing());
    const QPointer<QWidget> form = &Window("Form5");
    Press("Form5", "ssCommand2");
    EXPECT_EQ(Mark(0), "8");
    DeleteClosed();
    EXPECT_TRUE(form.isNull());
}

TEST_F(Form5Test, TheWindowsOwnCloseCommitsTheOpenEditToo)
{
    Type("8");
    Window("Form5").close();
    EXPECT_EQ(Mark(0), "8");
}

TEST_F(Form5Test, WriteHeadersStartsWithTheOpenEdit)
{
    forms.ShowPanel();
    forms.ShowGrid();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window("Form5")));
    QTest::qWait(20); // for the events that the windows still have for each other
    Grid().setFocus();
    Type("4");
    ASSERT_TRUE(IsEditing());
    // As a click does that takes no focus from the cell.
    emit Control<QPushButton>("Form4", "Command1").clicked();
    EXPECT_EQ(StoredHeader(4).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(Mark(0), "");
    EXPECT_EQ(Cell(0, "b"), "");
    EXPECT_FALSE(IsEditing());
}

} // namespace
} // namespace tarvex::tests
