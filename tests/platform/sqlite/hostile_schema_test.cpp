#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"
#include "platform/sqlite/survey_sql.h"
#include "platform/sqlite/survey_table_model.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

const QString kEndless = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) ";

/// A file whose schema would run something when its table is used.
struct Hostile {
    const char* situation;
    QStringList statements; ///< on a database with the program's table and one row in it
};

void PrintTo(const Hostile& hostile, std::ostream* out)
{
    *out << hostile.situation;
}

class HostileSchemaTest : public SurveyTest, public ::testing::WithParamInterface<Hostile>
{
};

QString AllColumns(const QString& last)
{
    QStringList columns;
    for (const auto field : kSurveyFields)
        if (field != "b") columns += "[" + QString::fromStdString(std::string(field)) + "]";
    return columns.join(", ") + ", " + last;
}

const QString kDropTable = "DROP TABLE tar_vex";

INSTANTIATE_TEST_SUITE_P(
    Table, HostileSchemaTest,
    ::testing::Values(
        Hostile{"EndlessView",
                {"ALTER TABLE tar_vex RENAME TO other",
                 "CREATE VIEW tar_vex AS SELECT * FROM other WHERE (" + kEndless +
                     "SELECT max(i) FROM n) > 0"}},
        Hostile{"EndlessTrigger",
                {"CREATE TRIGGER t BEFORE UPDATE ON tar_vex BEGIN SELECT max(i) FROM (" + kEndless +
                 "SELECT i FROM n); END"}},
        Hostile{"TriggerThatEmptiesTheTable",
                {"CREATE TRIGGER t AFTER UPDATE ON tar_vex BEGIN DELETE FROM tar_vex; END"}},
        Hostile{"TriggerOnInsert",
                {"CREATE TRIGGER t AFTER INSERT ON TAR_VEX BEGIN DELETE FROM tar_vex; END"}},
        Hostile{"VirtualTable",
                {kDropTable, "CREATE VIRTUAL TABLE tar_vex USING fts5(" + AllColumns("b") + ")"}},
        Hostile{"ComputedColumn",
                {kDropTable, "CREATE TABLE tar_vex (" + AllColumns("b") +
                                 ", x AS (hex(zeroblob(100000000))))"}},
        Hostile{"StoredComputedColumn",
                {kDropTable,
                 "CREATE TABLE tar_vex (" + AllColumns("b") + ", x AS (length(b)) STORED)"}},
        Hostile{"ComputedDefault",
                {kDropTable, "CREATE TABLE tar_vex (" + AllColumns("b") +
                                 ", x DEFAULT (hex(zeroblob(100000000))))"}},
        Hostile{"IndexOnAnExpression",
                {"CREATE INDEX x ON tar_vex (length(hex(zeroblob(length(b)))))"}},
        Hostile{"IndexOverSomeRows", {"CREATE INDEX x ON tar_vex (b) WHERE length(hex(b)) > 3"}},
        Hostile{"LookUpIndexOfAnother",
                {"DROP INDEX tar_vex_tube", "CREATE INDEX tar_vex_tube ON tar_vex (upper(b))"}},
        Hostile{"ColumnInPlaceOfTheRowNumber",
                {kDropTable, "CREATE TABLE tar_vex (rowid, " + AllColumns("b") + ")"}},
        Hostile{"NoRowNumber",
                {kDropTable, "CREATE TABLE tar_vex (" + AllColumns("b") +
                                 ", PRIMARY KEY (cliente)) WITHOUT ROWID"}}),
    SituationOf<Hostile>);

TEST_P(HostileSchemaTest, IsRefusedLikeAForeignFile)
{
    AddRow(TubeRow(DamHeader("00", "", "")));
    {
        RawDatabase raw(survey.databasePath);
        for (const QString& statement : GetParam().statements)
            raw.Run(statement);
    }
    const std::string before = FileBytes(survey.databasePath);

    EXPECT_THROW(backend->OpenTable(survey.databasePath), RunTimeFailure);
    Read();
    EXPECT_EQ(gridsShown, 1);
    boxes.Expect("Attention: Invalid DEPTH value");
    Write();
    const platform::SurveyTableModel model([&] { return survey.databasePath; });
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(FileBytes(survey.databasePath) == before);
}

class HostileContentTest : public SurveyTest
{
};

TEST_F(HostileContentTest, AHugeMarkIsShownCutAndIsNoBlock)
{
    std::string mark;
    mark.resize(20'000'000, '3');
    AddRow({{"b", mark}});
    const platform::SurveyTableModel model([&] { return survey.databasePath; });
    const auto shown = model.index(0, static_cast<int>(FieldIndex("b"))).data().toString();
    EXPECT_EQ(shown, QString(100, '3') + "...");
    boxes.Expect("Attention: Block no. is incorect");
    Write();
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", ""}}));
}

TEST_F(HostileContentTest, ATriggerMadeWhileAHandleIsOpenDoesNotRun)
{
    AddRow({{"b", "5"}});
    const auto table = backend->OpenTable(survey.databasePath);
    RawDatabase(survey.databasePath)
        .Run("CREATE TRIGGER t AFTER UPDATE ON tar_vex BEGIN DELETE FROM tar_vex; END");
    table->Edit();
    table->SetField("b", "");
    table->Update();
    EXPECT_THAT(RawDatabase(survey.databasePath).Run("SELECT b FROM tar_vex"), ElementsAre(""));
}

TEST_F(HostileContentTest, ViewsAndTriggersOfOtherTablesAreNoHindrance)
{
    RawDatabase raw(survey.databasePath);
    raw.Run("CREATE TABLE notes (text)");
    raw.Run("CREATE VIEW v AS " + kEndless + "SELECT i FROM n");
    raw.Run("CREATE TRIGGER t AFTER INSERT ON notes BEGIN DELETE FROM notes; END");
    AddRow({{"b", "5"}});
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "5"}}));
}

/// A tree of pages in which every branch is the same one: read from end to end it never ends.
TEST_F(HostileContentTest, PagesThatLeadInACircleAreGivenUp)
{
    AddRow({{"b", ""}});
    RawDatabase(survey.databasePath)
        .Run("INSERT INTO tar_vex (tubo) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
             "FROM n WHERE i < 20000) SELECT hex(i) FROM n");
    std::string bytes = FileBytes(survey.databasePath);
    constexpr std::size_t kRoot = 4096; // the table's: an inner page
    ASSERT_EQ(bytes[kRoot], 5);
    const std::string firstChild = bytes.substr(kRoot + 4096 - 7, 4);
    for (std::size_t cell = kRoot + 12; bytes[cell] != 0 || bytes[cell + 1] != 0; cell += 2) {
        const auto place = static_cast<std::size_t>(static_cast<unsigned char>(bytes[cell]) << 8 |
                                                    static_cast<unsigned char>(bytes[cell + 1]));
        bytes.replace(kRoot + place, 4, firstChild);
    }
    WriteFile(survey.databasePath, bytes);
    const platform::SurveyTableModel model([&] { return survey.databasePath; });
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace
} // namespace tarvex::tests
