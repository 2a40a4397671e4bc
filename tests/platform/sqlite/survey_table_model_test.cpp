#include "platform/sqlite/survey_table_model.h"

#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// The model as the grid sees it, with Qt's own checks of a model around it.
class SurveyTableModelTest : public SurveyTest
{
protected:
    struct Checked {
        explicit Checked(const std::filesystem::path& path)
            : model([path] { return path; }),
              tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
        {
        }
        platform::SurveyTableModel model;
        QAbstractItemModelTester tester;
    };

    std::unique_ptr<Checked> Make() { return std::make_unique<Checked>(survey.databasePath); }

    static std::string Cell(const QAbstractItemModel& model, int row, std::string_view field)
    {
        const int column = static_cast<int>(FieldIndex(field));
        return model.index(row, column).data().toString().toStdString();
    }

    static bool SetMark(QAbstractItemModel& model, int row, const QString& mark)
    {
        return model.setData(model.index(row, static_cast<int>(FieldIndex("b"))), mark);
    }
};

TEST_F(SurveyTableModelTest, ShowsEveryFieldOfEveryRowUnderItsName)
{
    AddRow({{"cliente", "CITT\xC0   "}, {"nlet", 3.0}, {"l25", "160926  093015  "}, {"b", "5"}});
    AddRow({{"nlet", "02"}});
    const auto checked = Make();
    const QAbstractItemModel& model = checked->model;
    EXPECT_EQ(model.rowCount(), 2);
    ASSERT_EQ(model.columnCount(), static_cast<int>(kSurveyFields.size()));
    for (int column = 0; column < model.columnCount(); ++column) {
        EXPECT_EQ(model.headerData(column, Qt::Horizontal).toString().toStdString(),
                  kSurveyFields[static_cast<std::size_t>(column)]);
    }
    EXPECT_EQ(Cell(model, 0, "cliente"), "CITT\xC3\x80   ");
    EXPECT_EQ(Cell(model, 0, "nlet"), "3");
    EXPECT_EQ(Cell(model, 0, "l25"), "160926  093015  ");
    EXPECT_EQ(Cell(model, 0, "b"), "5");
    EXPECT_EQ(Cell(model, 1, "nlet"), "02");
    EXPECT_EQ(Cell(model, 1, "b"), "");
}

TEST_F(SurveyTableModelTest, OnlyTheMarkCanBeEdited)
{
    AddRow({{"tubo", "T1  "}});
    const auto checked = Make();
    QAbstractItemModel& model = checked->model;
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex index = model.index(0, column);
        const bool editable = kSurveyFields[static_cast<std::size_t>(column)] == "b";
        EXPECT_EQ(index.flags().testFlag(Qt::ItemIsEditable), editable);
        EXPECT_TRUE(index.flags().testFlag(Qt::ItemIsSelectable));
        EXPECT_EQ(model.setData(index, "7"), editable);
    }
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}, {"b", "7"}}));
}

TEST_F(SurveyTableModelTest, AnEditIsInTheRowAtOnceAndIsReported)
{
    AddRow({{"tubo", "T1  "}});
    AddRow({{"tubo", "T2  "}});
    const auto checked = Make();
    QSignalSpy changes(&checked->model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(SetMark(checked->model, 1, "12"));
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}}));
    EXPECT_EQ(RowAt(1), (SurveyRow{{"tubo", "T2  "}, {"b", "12"}}));
    EXPECT_EQ(Cell(checked->model, 1, "b"), "12");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(SurveyTableModelTest, AMarkLeftAsItIsIsNotWritten)
{
    AddRow({{"tubo", "T1  "}});
    const auto checked = Make();
    EXPECT_TRUE(SetMark(checked->model, 0, ""));
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}}));
    EXPECT_TRUE(SetMark(checked->model, 0, "5"));
    EXPECT_TRUE(SetMark(checked->model, 0, ""));
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}, {"b", ""}}));
}

TEST_F(SurveyTableModelTest, AMarkOutsideTheCodePageGetsQuestionMarks)
{
    AddRow({{"tubo", "T1  "}});
    const auto checked = Make();
    EXPECT_TRUE(SetMark(checked->model, 0, QString::fromUtf8("à Ω")));
    EXPECT_EQ(RowAt(0).at("b"), "\xE0 ?");
    EXPECT_EQ(Cell(checked->model, 0, "b"), "à ?");
}

TEST_F(SurveyTableModelTest, AMarkThatCannotBeWrittenStaysAsItWas)
{
    AddRow({{"b", "5"}});
    const auto checked = Make();
    RawDatabase raw(survey.databasePath);
    raw.Run("BEGIN IMMEDIATE");
    EXPECT_FALSE(SetMark(checked->model, 0, "6"));
    raw.Run("ROLLBACK");
    EXPECT_EQ(Cell(checked->model, 0, "b"), "5");
    raw.Run("DELETE FROM tar_vex");
    EXPECT_FALSE(SetMark(checked->model, 0, "6"));
    EXPECT_TRUE(SetMark(checked->model, 0, "5"));
}

TEST_F(SurveyTableModelTest, TakesInWhatTheCommandsHaveWrittenAndKeepsItsRows)
{
    AddRow({{"tubo", "T1  "}, {"b", "30"}});
    const auto checked = Make();
    QSignalSpy resets(&checked->model, &QAbstractItemModel::modelReset);
    EXPECT_EQ(Cell(checked->model, 0, "b"), "30");
    boxes.Expect("Attention: Block no. is incorect");
    Write();
    Read();
    checked->model.revert();
    EXPECT_EQ(checked->model.rowCount(), 31);
    EXPECT_EQ(Cell(checked->model, 0, "b"), "");
    EXPECT_EQ(Cell(checked->model, 30, "cliente"), "CLIENT30");
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(SurveyTableModelTest, RowsThatAreGoneGo)
{
    AddRow({{"tubo", "T1  "}});
    AddRow({{"tubo", "T2  "}});
    const auto checked = Make();
    RawDatabase(survey.databasePath).Run("DELETE FROM tar_vex WHERE tubo = 'T1  '");
    checked->model.revert();
    EXPECT_EQ(checked->model.rowCount(), 1);
    EXPECT_EQ(Cell(checked->model, 0, "tubo"), "T2  ");
}

TEST_F(SurveyTableModelTest, ShowsEachRowWhereverOthersHaveGone)
{
    AddRow({{"tubo", "T100"}});
    RawDatabase raw(survey.databasePath);
    raw.Run("INSERT INTO tar_vex (tubo) WITH RECURSIVE n(i) AS (SELECT 101 UNION ALL "
            "SELECT i + 1 FROM n WHERE i < 699) SELECT 'T' || i FROM n");
    raw.Run("DELETE FROM tar_vex WHERE rowid IN (1, 2, 300, 599)");
    const auto checked = Make();
    QAbstractItemModel& model = checked->model;
    ASSERT_EQ(model.rowCount(), 596);
    EXPECT_EQ(Cell(model, 0, "tubo"), "T102");
    EXPECT_EQ(Cell(model, 296, "tubo"), "T398");
    EXPECT_EQ(Cell(model, 297, "tubo"), "T400");
    EXPECT_EQ(Cell(model, 595, "tubo"), "T699");
    EXPECT_TRUE(SetMark(model, 297, "7"));
    EXPECT_EQ(RowAt(297), (SurveyRow{{"tubo", "T400"}, {"b", "7"}}));
}

TEST_F(SurveyTableModelTest, GoesOnWithTheSameRowsWhenTheLastOnesAreReplaced)
{
    AddRow({{"tubo", "T1  "}});
    AddRow({{"tubo", "T2  "}});
    const auto checked = Make();
    RawDatabase raw(survey.databasePath);
    raw.Run("DELETE FROM tar_vex WHERE tubo = 'T1  '");
    raw.Run("INSERT INTO tar_vex (rowid, tubo) VALUES (9, 'T9  ')");
    checked->model.revert();
    ASSERT_EQ(checked->model.rowCount(), 2);
    EXPECT_EQ(Cell(checked->model, 0, "tubo"), "T2  ");
    EXPECT_EQ(Cell(checked->model, 1, "tubo"), "T9  ");
}

TEST_F(SurveyTableModelTest, NothingIsReadAgainWhileNothingHasChanged)
{
    AddRow({{"tubo", "T1  "}});
    const auto checked = Make();
    QSignalSpy changes(&checked->model, &QAbstractItemModel::dataChanged);
    checked->model.revert();
    EXPECT_TRUE(SetMark(checked->model, 0, "5"));
    checked->model.revert();
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(SurveyTableModelTest, WithoutADatabaseThereAreNoRowsAndNoneIsMade)
{
    const auto checked = Make();
    EXPECT_EQ(checked->model.rowCount(), 0);
    EXPECT_EQ(checked->model.columnCount(), 35);
    EXPECT_FALSE(std::filesystem::exists(survey.databasePath));
    Read();
    checked->model.revert();
    EXPECT_EQ(checked->model.rowCount(), 30);
}

TEST_F(SurveyTableModelTest, AFileThatIsNotOursShowsNothingAndIsNotTouched)
{
    WriteFile(survey.databasePath, "a letter");
    const auto checked = Make();
    checked->model.revert();
    EXPECT_EQ(checked->model.rowCount(), 0);
    EXPECT_EQ(FileBytes(survey.databasePath), "a letter");
}

TEST_F(SurveyTableModelTest, ATableThatIsNotOursShowsNothing)
{
    RawDatabase(survey.databasePath).Run("CREATE TABLE tar_vex (b)");
    const auto checked = Make();
    EXPECT_EQ(checked->model.rowCount(), 0);
}

TEST_F(SurveyTableModelTest, FollowsThePathWhenItMoves)
{
    AddRow({{"tubo", "T1  "}});
    std::filesystem::path path = survey.databasePath;
    platform::SurveyTableModel model([&] { return path; });
    EXPECT_EQ(model.rowCount(), 1);
    path = folder / "other.mdb";
    model.revert();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(SurveyTableModelTest, HoldsNoLockBetweenItsReads)
{
    for (int row = 0; row < 300; ++row)
        AddRow({{"b", std::to_string(row)}});
    const auto checked = Make();
    EXPECT_EQ(Cell(checked->model, 150, "b"), "150");
    const auto table = backend->OpenTable(survey.databasePath);
    table->Edit();
    table->SetField("b", "X");
    table->Update();
    EXPECT_EQ(Cell(checked->model, 299, "b"), "299");
    checked->model.revert();
    EXPECT_EQ(Cell(checked->model, 0, "b"), "X");
    EXPECT_EQ(Cell(checked->model, 128, "b"), "128");
}

} // namespace
} // namespace tarvex::tests
