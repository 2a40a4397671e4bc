#include "panel/survey/form5_test.h"
#include "platform/sqlite/raw_database.h"
#include "support/nameless_widgets.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolTip>

#include <set>
#include <string>
#include <vector>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

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
