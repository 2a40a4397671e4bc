#include "panel/survey/database_forms_test.h"
#include "platform/sqlite/raw_database.h"
#include "support/nameless_widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <set>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

class Form5Test : public DatabaseFormsTest
{
protected:
    Form5Test()
    {
        for (const auto* const tube : {"T1", "T2", "T3"}) {
            BlockHeader header = DamHeader("00", "", "");
            header.tubo = tube;
            AddRow(TubeRow(header));
        }
        forms.ShowGrid();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Window("Form5")));
    }

    static bool IsEditing()
    {
        const auto edits = Grid().findChildren<QLineEdit*>();
        return std::any_of(edits.begin(), edits.end(),
                           [](const QLineEdit* edit) { return edit->isVisible(); });
    }

    static std::string EditedText()
    {
        for (const QLineEdit* edit : Grid().findChildren<QLineEdit*>())
            if (edit->isVisible()) return edit->text().toStdString();
        return {};
    }

    /// The line that says why a mark is not stored, while it is on view.
    static std::string Notice()
    {
        const auto& notice = Control<QLabel>("Form5", "notice");
        return notice.isVisible() ? notice.text().toStdString() : "";
    }

    static int CurrentRow() { return Grid().currentIndex().row(); }

    static std::string CurrentField()
    {
        const auto column = Grid().currentIndex().column();
        return std::string(kSurveyFields.at(static_cast<std::size_t>(column)));
    }

    static void DoubleClick(int row, std::string_view field)
    {
        const int column = static_cast<int>(FieldIndex(field));
        const QRect cell = Grid().visualRect(Grid().model()->index(row, column));
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, cell.center());
    }

    static void GoTo(int row, std::string_view field)
    {
        Grid().setCurrentIndex(Grid().model()->index(row, static_cast<int>(FieldIndex(field))));
    }
};

TEST_F(Form5Test, EveryWidgetOfTheDatabasesFormsHasAName)
{
    forms.ShowPanel();
    const WindowsOnView found = WalkWindows();
    EXPECT_EQ(found.count, 2);
    EXPECT_EQ(found.nameless, std::vector<std::string>{});
}

TEST_F(Form5Test, ShowsTheInstructionAndTheWayOut)
{
    EXPECT_EQ(Window("Form5").windowTitle().toStdString(), "DATABASE Tar Vex ");
    EXPECT_FALSE(Window("Form5").isModal());
    EXPECT_EQ(Control<QLabel>("Form5", "Label1").text().toStdString(),
              "Per trasferire i dati al blocco selezionare il numero nella casella relativa");
    auto& close = Control<QPushButton>("Form5", "ssCommand2");
    EXPECT_EQ(close.text().toStdString(), "");
    EXPECT_FALSE(close.icon().isNull());
    EXPECT_FALSE(close.accessibleName().isEmpty());
    EXPECT_FALSE(Grid().accessibleName().isEmpty());
}

TEST_F(Form5Test, ThePictureIsDrawn)
{
    const QImage picture =
        Control<QPushButton>("Form5", "ssCommand2").icon().pixmap(QSize(32, 32)).toImage();
    int drawn = 0;
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            drawn += qAlpha(picture.pixel(x, y)) > 0 ? 1 : 0;
    EXPECT_GT(drawn, 200);
}

TEST_F(Form5Test, TheMarkComesFirstAndTheOtherFieldsInTheirOrder)
{
    const QHeaderView& header = *Grid().horizontalHeader();
    std::vector<std::string> shown;
    for (int place = 0; place < header.count(); ++place) {
        const int column = header.logicalIndex(place);
        EXPECT_FALSE(header.isSectionHidden(column));
        shown.push_back(
            header.model()->headerData(column, Qt::Horizontal).toString().toStdString());
    }
    std::vector<std::string> expected = {"b"};
    expected.insert(expected.end(), kSurveyFields.begin(), kSurveyFields.end() - 1);
    EXPECT_EQ(shown, expected);
}

TEST_F(Form5Test, EveryColumnIsWideEnoughForItsFieldAndItsName)
{
    const QFontMetrics metrics = Grid().fontMetrics();
    const auto isWideEnough = [&](std::string_view field, const QString& text) {
        return Grid().columnWidth(static_cast<int>(FieldIndex(field))) >
               metrics.horizontalAdvance(text);
    };
    EXPECT_TRUE(isWideEnough("b", "29.5"));
    EXPECT_TRUE(isWideEnough("cliente", "WWWWWWWW"));
    EXPECT_TRUE(isWideEnough("tubo", "WWWW"));
    EXPECT_TRUE(isWideEnough("l25", "160926  093015  "));
    for (const auto field : kSurveyFields)
        EXPECT_TRUE(isWideEnough(field, QString::fromStdString(std::string(field)))) << field;
    EXPECT_GT(Grid().rowHeight(0), metrics.height());
}

TEST_F(Form5Test, RowsAreInTheOrderOfTheirAdding)
{
    EXPECT_EQ(Grid().model()->rowCount(), 3);
    EXPECT_EQ(Cell(0, "tubo"), "T1  ");
    EXPECT_EQ(Cell(2, "tubo"), "T3  ");
}

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

TEST_F(Form5Test, IsCurrentWhenItComesToTheFront)
{
    EXPECT_EQ(Cell(0, "b"), "");
    RawDatabase(survey.databasePath).Run("UPDATE tar_vex SET b = '6'");
    EXPECT_EQ(Cell(0, "b"), "");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Window("Form5").activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window("Form5")));
    EXPECT_EQ(Cell(0, "b"), "6");
}

TEST_F(Form5Test, OpeningItAgainRaisesItAndShowsWhatIsNew)
{
    const QPointer<QWidget> form = &Window("Form5");
    GoTo(2, "b");
    AddRow({{"tubo", "T4  "}});
    forms.ShowGrid();
    EXPECT_EQ(&Window("Form5"), form.data());
    EXPECT_EQ(Cell(3, "tubo"), "T4  ");
    EXPECT_EQ(CurrentRow(), 2);
}

TEST_F(Form5Test, AnOpenEditIsNotLostToRowsThatCome)
{
    Type("8");
    AddRow({{"tubo", "T4  "}});
    forms.ShowGrid();
    EXPECT_EQ(Mark(0), "8");
    EXPECT_EQ(Cell(0, "b"), "8");
    EXPECT_EQ(Cell(3, "tubo"), "T4  ");
}

TEST_F(Form5Test, AMarkThatCannotBeWrittenStaysInItsEditorAndIsReported)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Type(Qt::Key_Return);
    EXPECT_EQ(Cell(0, "b"), "");
    EXPECT_EQ(EditedText(), "8");
    EXPECT_EQ(Notice(), "The mark \"8\" is not stored: another program is writing to the "
                        "database. Enter tries again, Escape drops the mark.");
    raw.Run("ROLLBACK");
    EXPECT_EQ(Mark(0), Value());
    Type(Qt::Key_Return);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Notice(), "");
    EXPECT_EQ(Mark(0), "8");
}

TEST_F(Form5Test, EscapeDropsAMarkThatCannotBeWritten)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Type(Qt::Key_Return);
    Type(Qt::Key_Escape);
    EXPECT_FALSE(IsEditing());
    EXPECT_EQ(Notice(), "");
    raw.Run("ROLLBACK");
    Window("Form5").close();
    EXPECT_EQ(Find("Form5"), nullptr);
    EXPECT_EQ(Mark(0), Value());
}

TEST_F(Form5Test, StaysOpenAsLongAsAMarkCannotBeWritten)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    Press("Form5", "ssCommand2");
    EXPECT_EQ(EditedText(), "8");
    EXPECT_NE(Notice(), "");
    raw.Run("ROLLBACK");
    Press("Form5", "ssCommand2");
    EXPECT_EQ(Find("Form5"), nullptr);
    EXPECT_EQ(Mark(0), "8");
}

TEST_F(Form5Test, AnotherMarkBeginsOnlyWhenTheRefusedOneIsStored)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    Type("8");
    DoubleClick(1, "b");
    EXPECT_EQ(EditedText(), "8");
    raw.Run("ROLLBACK");
    DoubleClick(1, "b");
    Type("9");
    Type(Qt::Key_Return);
    EXPECT_THAT((std::vector{Mark(0), Mark(1)}), ElementsAre("8", "9"));
}

TEST_F(Form5Test, AMarkForAFileThatIsGoneIsReportedAndTheRowsGo)
{
    Type("8");
    std::filesystem::rename(survey.databasePath, folder / "away.mdb");
    Type(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Notice(), "The mark \"8\" is not stored: the database has changed or cannot be "
                        "written. Look at its rows and type the mark again.");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_FALSE(IsEditing());
    EXPECT_FALSE(std::filesystem::exists(survey.databasePath));
    EXPECT_THAT(RawDatabase(folder / "away.mdb").Run("SELECT count(b) FROM tar_vex"),
                ElementsAre("0"));
}

TEST_F(Form5Test, AMarkIsNotWrittenToATubeThatWasNotShown)
{
    Type("8");
    std::filesystem::copy(survey.databasePath, folder / "new.mdb");
    RawDatabase(folder / "new.mdb").Run("UPDATE tar_vex SET tubo = 'NEW '");
    std::filesystem::rename(folder / "new.mdb", survey.databasePath);
    Type(Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(Mark(0), Value());
    EXPECT_EQ(Cell(0, "tubo"), "NEW ");
    EXPECT_NE(Notice(), "");
}

TEST_F(Form5Test, ReadHeadersShowsTheFileThatIsInPlace)
{
    forms.ShowPanel();
    std::filesystem::remove(survey.databasePath);
    Press("Form4", "ssCommand2");
    EXPECT_EQ(Grid().model()->rowCount(), 30);
    EXPECT_EQ(Cell(0, "cliente"), "CLIENT 1");
}

TEST_F(Form5Test, IsCurrentWhenTheGridGetsTheKeyboard)
{
    Control<QPushButton>("Form5", "ssCommand2").setFocus();
    RawDatabase(survey.databasePath).Run("UPDATE tar_vex SET b = '6'");
    Grid().setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(Cell(0, "b"), "6");
}

TEST_F(Form5Test, OneFileIsThereWhileItIsShown)
{
    Type("8");
    Type(Qt::Key_Return);
    std::vector<std::string> files = NamesIn(folder.Path());
    std::erase(files, "intestazione");
    EXPECT_THAT(files, ElementsAre("tar_vex.mdb"));
    std::filesystem::copy(survey.databasePath, folder / "copy.mdb");
    EXPECT_THAT(RawDatabase(folder / "copy.mdb").Run("SELECT b FROM tar_vex LIMIT 1"),
                ElementsAre("8"));
}

TEST_F(Form5Test, LastOfManyRowsIsShownAndEdited)
{
    RawDatabase(survey.databasePath)
        .Run("INSERT INTO tar_vex (tubo) WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 "
             "FROM n WHERE i < 100000) SELECT 'T' || i FROM n");
    forms.ShowGrid();
    EXPECT_EQ(Grid().model()->rowCount(), 100'000);
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(CurrentRow(), 99'999);
    EXPECT_EQ(Cell(99'999, "tubo"), "T100000");
    EXPECT_TRUE(
        Grid().viewport()->rect().contains(Grid().visualRect(Grid().currentIndex()).center()));
    Type("5");
    Type(Qt::Key_Return);
    EXPECT_EQ(Mark(99'999), "5");
}

TEST_F(Form5Test, ExplainsEveryFieldInTheTipOfItsHead)
{
    auto& head = *Grid().horizontalHeader();
    std::set<QString> shown;
    for (int field = 0; field < head.count(); ++field) {
        Grid().scrollTo(Grid().model()->index(0, field));
        const QPoint at(head.sectionViewportPosition(field) + 10, head.height() / 2);
        QHelpEvent help(QEvent::ToolTip, at, head.viewport()->mapToGlobal(at));
        QApplication::sendEvent(head.viewport(), &help);
        EXPECT_GE(QToolTip::text().size(), 4) << field;
        shown.insert(QToolTip::text());
    }
    EXPECT_EQ(shown.size(), kSurveyFields.size()) << "no two fields hold the same";
    EXPECT_TRUE(shown.contains("Client"));
    EXPECT_TRUE(
        shown.contains("Date and time of reading 25: day, month, year, hours, minutes, seconds"));
    QToolTip::hideText();
}

} // namespace
} // namespace tarvex::tests
