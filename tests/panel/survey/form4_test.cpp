#include "panel/survey/database_forms_test.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace tarvex::tests
{
namespace
{

class Form4Test : public DatabaseFormsTest
{
protected:
    Form4Test() { forms.ShowPanel(); }
};

TEST_F(Form4Test, ShowsItsThreeButtons)
{
    EXPECT_EQ(Window("Form4").windowTitle().toStdString(), "Control panel DB Tar Vex");
    EXPECT_FALSE(Window("Form4").isModal());
    const auto caption = [](const char* name) {
        return Control<QPushButton>("Form4", name).text().toStdString();
    };
    EXPECT_EQ(caption("ssCommand2"), "Read Headers");
    EXPECT_EQ(caption("Command1"), "Write Headers");
    EXPECT_EQ(caption("Command2"), "Display Batabase");
    EXPECT_EQ(Window("Form4").findChildren<QPushButton*>().size(), 3);
}

TEST_F(Form4Test, ItsLoadSettlesWhereTheDatabaseLies)
{
    EXPECT_EQ(survey.databasePath, folder / "tar_vex.mdb");
    currentDirectory = folder / "elsewhere";
    forms.ShowPanel(); // raised, not loaded
    EXPECT_EQ(survey.databasePath, folder / "tar_vex.mdb");
    Window("Form4").close();
    forms.ShowPanel();
    EXPECT_EQ(survey.databasePath, folder / "elsewhere" / "tar_vex.mdb");
}

TEST_F(Form4Test, OpeningItMakesNoDatabase)
{
    EXPECT_FALSE(std::filesystem::exists(survey.databasePath));
}

TEST_F(Form4Test, ReadHeadersEndsInTheGrid)
{
    Press("Form4", "ssCommand2");
    EXPECT_EQ(Grid().model()->rowCount(), 30);
    EXPECT_EQ(Cell(0, "cliente"), "CLIENT 1");
    EXPECT_FALSE(Window("Form5").isModal());
    EXPECT_TRUE(Window("Form4").isVisible());
}

TEST_F(Form4Test, ReadHeadersTakesNewRowsIntoAGridThatIsOpen)
{
    Press("Form4", "Command2");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    const QPointer<QWidget> grid = &Window("Form5");
    Press("Form4", "ssCommand2");
    EXPECT_EQ(&Window("Form5"), grid.data());
    EXPECT_EQ(Grid().model()->rowCount(), 30);
}

TEST_F(Form4Test, WriteHeadersWritesTheMarkedRowsAndTheGridShowsIt)
{
    AddRow(TubeRow(DamHeader("00", "", "")));
    Press("Form4", "Command2");
    Grid().model()->setData(Grid().model()->index(0, static_cast<int>(FieldIndex("b"))), "5");
    Press("Form4", "Command1");
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(Cell(0, "b"), "");
    EXPECT_EQ(panel.blockNumber.Text(), "01");
}

TEST_F(Form4Test, WriteHeadersNeedsNoGrid)
{
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["b"] = "5";
    AddRow(row);
    Press("Form4", "Command1");
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(Find("Form5"), nullptr);
}

TEST_F(Form4Test, WithoutADatabaseEachButtonHasItsOutcome)
{
    WriteFile(survey.databasePath, "a letter");
    Press("Form4", "ssCommand2");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    boxes.Expect("Attention: Invalid DEPTH value");
    Press("Form4", "Command1");
    Press("Form4", "Command2");
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    EXPECT_EQ(FileBytes(survey.databasePath), "a letter");
}

TEST_F(Form4Test, IsOneInstanceAndIsDressedOnceALoad)
{
    std::vector<QString> dressed;
    forms.Dress([&](QWidget& form) { dressed.push_back(form.objectName()); });
    const QPointer<QWidget> first = &Window("Form4");
    forms.ShowPanel();
    EXPECT_EQ(&Window("Form4"), first.data());
    first->close();
    DeleteClosed();
    EXPECT_TRUE(first.isNull());
    forms.ShowPanel();
    forms.ShowGrid();
    EXPECT_EQ(dressed, (std::vector<QString>{"Form4", "Form5"}));
}

TEST_F(Form4Test, StaysAboveTheMainFormAndGoesWithIt)
{
    Window("Form4").close();
    DeleteClosed();
    QPointer<QWidget> form4;
    QPointer<QWidget> form5;
    {
        QWidget mainForm;
        forms.StandAbove(&mainForm);
        forms.ShowPanel();
        forms.ShowGrid();
        form4 = &Window("Form4");
        form5 = &Window("Form5");
        EXPECT_EQ(form4->parentWidget(), &mainForm);
        EXPECT_EQ(form5->parentWidget(), &mainForm);
    }
    EXPECT_TRUE(form4.isNull());
    EXPECT_TRUE(form5.isNull());
}

TEST_F(Form4Test, MayBeClosedWhileItsOwnCommandRuns)
{
    AddRow(TubeRow(DamHeader("00", "", "")));
    world.At(0, [] {
        Window("Form4").close();
        DeleteClosed();
    });
    Press("Form4", "Command1");
    EXPECT_EQ(Find("Form4"), nullptr);
    EXPECT_EQ(Mark(0), "");
}

} // namespace
} // namespace tarvex::tests
