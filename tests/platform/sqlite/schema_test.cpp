#include "database/criterion.h"
#include "database/survey_test.h"
#include "platform/sqlite/raw_database.h"
#include "platform/sqlite/survey_sql.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// The file as another program sees it.
class SchemaTest : public SurveyTest
{
protected:
    std::unique_ptr<RecordSet> Table() { return backend->OpenTable(survey.databasePath); }
    RawDatabase Raw() { return RawDatabase(survey.databasePath); }

    QStringList Ask(const char* statement) { return Raw().Run(QString::fromUtf8(statement)); }
};

TEST_F(SchemaTest, TheTableHasTheColumnsInTheirOrder)
{
    Table();
    QStringList expected;
    for (const auto field : kSurveyFields) {
        const auto name = QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
        expected += name + (field == "nlet" ? "|" : "|TEXT") + "|0|Null|0";
    }
    EXPECT_EQ(Ask("SELECT name, type, [notnull], dflt_value, pk FROM pragma_table_info('tar_vex')"),
              expected);
}

TEST_F(SchemaTest, ValuesAreStoredByTheirKind)
{
    AddRow({{"nlet", 0.0}, {"b", ""}});
    AddRow({{"nlet", "02"}, {"b", "5"}});
    AddRow({{"nlet", 0.5}, {"b", 5.0}});
    EXPECT_THAT(Ask("SELECT typeof(nlet), nlet, typeof(b), b, typeof(l0) FROM tar_vex"),
                ElementsAre("integer|0|text||null", "text|02|text|5|null", "real|0.5|text|5|null"));
}

TEST_F(SchemaTest, TextIsStoredAsUnicodeWithItsBlanksAndNuls)
{
    using namespace std::string_literals;
    AddRow({{"cliente", "CITT\xC0  "}, {"cantiere", "A\0B"s}, {"tubo", "\x80"}});
    EXPECT_THAT(Ask("SELECT hex(cliente), hex(cantiere), hex(tubo) FROM tar_vex"),
                ElementsAre("43495454C3802020|410042|E282AC"));
}

TEST_F(SchemaTest, WhatTheCodePageDoesNotHoldReadsAsQuestionMarkAndIsNotLost)
{
    Table();
    Ask("INSERT INTO tar_vex (cliente, tubo) VALUES ('\xCE\xA9MEGA', '\xF0\x9F\x98\x80')");
    const auto table = Table();
    EXPECT_EQ(table->Fields("cliente"), "?MEGA");
    EXPECT_EQ(table->Fields("tubo"), "?");
    table->Edit();
    table->SetField("b", "5");
    table->Update();
    EXPECT_THAT(Ask("SELECT cliente, b FROM tar_vex"), ElementsAre(QString::fromUtf8("ΩMEGA|5")));
}

TEST_F(SchemaTest, AnUpdateIsThereForOthersAtOnce)
{
    const auto table = Table();
    auto other = Raw();
    table->AddNew();
    table->SetField("b", "5");
    EXPECT_THAT(other.Run("SELECT b FROM tar_vex"), ElementsAre());
    table->Update();
    EXPECT_THAT(other.Run("SELECT b FROM tar_vex"), ElementsAre("5"));
    table->MoveFirst();
    table->Edit();
    table->SetField("b", "");
    table->Update();
    EXPECT_THAT(other.Run("SELECT b FROM tar_vex"), ElementsAre(""));
}

TEST_F(SchemaTest, AnUpdateThatChangesNothingWritesNothing)
{
    AddRow({{"tubo", "T1  "}, {"b", ""}});
    const auto table = Table();
    auto other = Raw();
    const auto version = other.Run("PRAGMA data_version");
    table->Edit();
    table->SetField("b", "");
    table->SetField("tubo", "T1  ");
    table->Update();
    EXPECT_EQ(other.Run("PRAGMA data_version"), version);
    table->Edit();
    table->SetField("b", Value());
    table->Update();
    EXPECT_NE(other.Run("PRAGMA data_version"), version);
}

TEST_F(SchemaTest, OthersMayReadAndWriteWhileAHandleIsOnARow)
{
    AddRow({{"b", "1"}});
    AddRow({{"b", "2"}});
    const auto table = Table();
    EXPECT_EQ(table->Fields("tubo"), Value());
    Ask("UPDATE tar_vex SET tubo = 'T9' WHERE b = '2'");
    table->Edit();
    table->SetField("b", "");
    table->Update();
    table->MoveNext();
    EXPECT_EQ(table->Fields("tubo"), "T9");
}

TEST_F(SchemaTest, ARowThatIsGoneFails)
{
    AddRow({{"b", "1"}});
    const auto table = Table();
    Ask("DELETE FROM tar_vex");
    EXPECT_THROW(table->Fields("tubo"), RunTimeFailure);
    table->Edit();
    table->SetField("b", "");
    EXPECT_THROW(table->Update(), RunTimeFailure);
    table->MoveNext();
    EXPECT_TRUE(table->Eof());
}

TEST_F(SchemaTest, TheLookUpGoesByItsIndexOnly)
{
    AddRow(TubeRow(DamHeader("00", "", "")));
    const auto conditions = ParseCriterion(TubeCriterion(DefaultHeader(0)));
    const QString lookUp = QString::fromStdString(platform::SelectKeysSql(conditions));
    const auto plan = Raw().Run("EXPLAIN QUERY PLAN " + QString(lookUp).replace("?", "1"));
    ASSERT_EQ(plan.size(), 1) << plan.join("\n").toStdString();
    EXPECT_TRUE(plan.front().contains("SEARCH tar_vex USING INDEX tar_vex_tube"))
        << plan.front().toStdString();
}

TEST_F(SchemaTest, ATableWithoutItsIndexGetsItBack)
{
    AddRow(TubeRow(DamHeader("00", "", "")));
    Ask("DROP INDEX tar_vex_tube");
    const auto table = Table();
    table->SetFilter(TubeCriterion(DamHeader("00", "", "")));
    EXPECT_FALSE(table->OpenRecordset()->Eof());
    EXPECT_THAT(Ask("SELECT name FROM sqlite_master WHERE type = 'index'"),
                ElementsAre("tar_vex_tube"));
    EXPECT_THAT(Ask("PRAGMA integrity_check"), ElementsAre("ok"));
}

TEST_F(SchemaTest, TheIndexFollowsWhatOtherProgramsWrite)
{
    Table();
    Ask("INSERT INTO tar_vex (cliente, cantiere, tubo) VALUES ('rossi   ', 'Diga A  ', 't1  ')");
    const auto table = Table();
    table->SetFilter(TubeCriterion(DamHeader("00", "", "")));
    EXPECT_EQ(table->OpenRecordset()->Fields("cliente"), "rossi   ");
}

TEST_F(SchemaTest, ATableWithMoreColumnsInAnotherOrderServes)
{
    QString columns = "note TEXT NOT NULL DEFAULT 'n', b";
    for (auto field = kSurveyFields.rbegin() + 1; field != kSurveyFields.rend(); ++field)
        columns +=
            ", [" + QString::fromUtf8(field->data(), static_cast<qsizetype>(field->size())) + "]";
    Raw().Run("CREATE TABLE TAR_VEX (" + columns + ")");
    AddRow({{"tubo", "T1  "}, {"b", "5"}});
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"tubo", "T1  "}, {"b", "5"}}));
    EXPECT_THAT(Ask("SELECT note FROM tar_vex"), ElementsAre("n"));
}

TEST_F(SchemaTest, RowsOfAnySizeOfNumberAreWalked)
{
    Table();
    Ask("INSERT INTO tar_vex (rowid, b) VALUES (-5, 'first'), (0, 'second'), "
        "(9223372036854775806, 'third')");
    AddRow({{"b", "fourth"}});
    std::vector<Value> marks;
    for (SurveyRow& row : Rows())
        marks.push_back(row["b"]);
    EXPECT_THAT(marks, ElementsAre("first", "second", "third", "fourth"));
}

} // namespace
} // namespace tarvex::tests
