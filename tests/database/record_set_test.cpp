#include "database/criterion.h"
#include "database/survey_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

/// What every engine promises, on a table of its own.
class RecordSetTest : public SurveyTest
{
protected:
    std::unique_ptr<RecordSet> Table() { return backend->OpenTable(survey.databasePath); }

    std::unique_ptr<RecordSet> Find(std::string_view criterion)
    {
        const auto table = Table();
        table->SetFilter(criterion);
        return table->OpenRecordset();
    }

    /// The texts of one field, row by row from the handle's row on.
    static std::vector<Value> Walk(RecordSet& records, std::string_view field)
    {
        std::vector<Value> values;
        for (; !records.Eof(); records.MoveNext())
            values.push_back(records.Fields(field));
        return values;
    }
};

TEST_F(RecordSetTest, ANewTableHasNoRows)
{
    const auto table = Table();
    EXPECT_TRUE(table->Eof());
    EXPECT_THROW(table->MoveFirst(), RunTimeFailure);
    EXPECT_THROW(table->MoveNext(), RunTimeFailure);
    EXPECT_THROW(table->Edit(), RunTimeFailure);
    EXPECT_THROW(table->Fields("b"), RunTimeFailure);
}

TEST_F(RecordSetTest, AHandleJustOpenedIsOnTheFirstRow)
{
    AddRow({{"tubo", "T1  "}});
    AddRow({{"tubo", "T2  "}});
    EXPECT_THAT(Walk(*Table(), "tubo"), ElementsAre("T1  ", "T2  "));
}

TEST_F(RecordSetTest, RowsKeepTheOrderInWhichTheyWereAdded)
{
    std::vector<Value> added;
    const auto table = Table();
    for (int number = 700; number > 0; --number) {
        added.emplace_back(std::to_string(number));
        table->AddNew();
        table->SetField("b", added.back());
        table->Update();
    }
    EXPECT_TRUE(table->Eof());
    table->MoveFirst();
    EXPECT_EQ(Walk(*table, "b"), added);
    table->MoveFirst();
    EXPECT_EQ(table->Fields("b"), "700");
}

TEST_F(RecordSetTest, AFieldNeverSetIsNull)
{
    AddRow({});
    const auto table = Table();
    for (const auto field : kSurveyFields)
        EXPECT_TRUE(table->Fields(field).IsNull()) << field;
}

TEST_F(RecordSetTest, KeepsNullEmptyTextAndBlanksApart)
{
    AddRow({{"cliente", ""}, {"cantiere", "  "}});
    const auto table = Table();
    EXPECT_EQ(table->Fields("cliente"), "");
    EXPECT_EQ(table->Fields("cantiere"), "  ");
    EXPECT_EQ(table->Fields("tubo"), Value());
}

TEST_F(RecordSetTest, TheReadoutNumberKeepsNumberAndTextApart)
{
    AddRow({{"nlet", 7.0}});
    AddRow({{"nlet", "07"}});
    AddRow({{"nlet", 0.5}});
    AddRow({{"nlet", -3.0}});
    EXPECT_THAT(Walk(*Table(), "nlet"),
                ElementsAre(Value(7.0), Value("07"), Value(0.5), Value(-3.0)));
}

TEST_F(RecordSetTest, ANumberInATextFieldBecomesItsText)
{
    AddRow({{"b", 5.0}, {"l0", 2.5}});
    const auto table = Table();
    EXPECT_EQ(table->Fields("b"), "5");
    EXPECT_EQ(table->Fields("l0"), "2.5");
}

TEST_F(RecordSetTest, AllByteValuesSurvive)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    AddRow({{"cliente", bytes}, {"b", bytes}});
    const auto table = Table();
    EXPECT_EQ(table->Fields("cliente"), bytes);
    EXPECT_EQ(table->Fields("b"), bytes);
}

TEST_F(RecordSetTest, FieldNamesDisregardTheCaseOfLetters)
{
    AddRow({{"Tubo", "T1  "}, {"PROFONDITà", "0500"}});
    const auto table = Table();
    EXPECT_EQ(table->Fields("TUBO"), "T1  ");
    EXPECT_EQ(table->Fields("profondità"), "0500");
}

TEST_F(RecordSetTest, AnUnknownFieldFails)
{
    AddRow({{"tubo", "T1  "}});
    const auto table = Table();
    EXPECT_THROW(table->Fields("l26"), RunTimeFailure);
    table->Edit();
    EXPECT_THROW(table->SetField("", "x"), RunTimeFailure);
    EXPECT_THROW(table->SetField("rowid", "x"), RunTimeFailure);
}

TEST_F(RecordSetTest, EditChangesTheSetFieldsOnlyAndOnlyWithUpdate)
{
    AddRow({{"tubo", "T1  "}, {"b", "5"}});
    auto table = Table();
    table->Edit();
    table->SetField("b", "");
    EXPECT_EQ(table->Fields("b"), "");
    EXPECT_EQ(table->Fields("tubo"), "T1  ");
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}, {"b", "5"}}));
    table->Update();
    EXPECT_EQ(table->Fields("b"), "");
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}, {"b", ""}}));
}

TEST_F(RecordSetTest, AnEditCanSetNull)
{
    AddRow({{"tubo", "T1  "}, {"b", "5"}});
    const auto table = Table();
    table->Edit();
    table->SetField("b", Value());
    table->Update();
    EXPECT_EQ(table->Fields("b"), Value());
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}}));
}

TEST_F(RecordSetTest, WithoutUpdateABufferIsDroppedByMovesAndByClose)
{
    AddRow({{"b", "1"}});
    AddRow({{"b", "2"}});
    auto table = Table();
    table->Edit();
    table->SetField("b", "X");
    table->MoveNext();
    EXPECT_THROW(table->Update(), RunTimeFailure);
    table->AddNew();
    table->SetField("b", "Y");
    table->MoveFirst();
    EXPECT_EQ(table->Fields("b"), "1");
    table->AddNew();
    table->SetField("b", "Z");
    table->Close();
    EXPECT_THAT(Rows(), ElementsAre(SurveyRow{{"b", "1"}}, SurveyRow{{"b", "2"}}));
}

TEST_F(RecordSetTest, SettingAndUpdatingNeedABuffer)
{
    AddRow({{"b", "1"}});
    const auto table = Table();
    EXPECT_THROW(table->SetField("b", "2"), RunTimeFailure);
    EXPECT_THROW(table->Update(), RunTimeFailure);
    table->Edit();
    table->Update();
    EXPECT_THROW(table->Update(), RunTimeFailure);
    EXPECT_EQ(RowAt(0), (SurveyRow{{"b", "1"}}));
}

TEST_F(RecordSetTest, ANewRowLeavesThePositionWhereItWas)
{
    AddRow({{"b", "1"}});
    AddRow({{"b", "2"}});
    const auto table = Table();
    table->AddNew();
    EXPECT_TRUE(table->Fields("b").IsNull());
    table->SetField("b", "3");
    EXPECT_EQ(table->Fields("b"), "3");
    table->Update();
    EXPECT_EQ(table->Fields("b"), "1");
    EXPECT_THAT(Walk(*table, "b"), ElementsAre("1", "2", "3"));
}

TEST_F(RecordSetTest, ANewRowInAHandleWithoutRowsIsFoundByMoveFirst)
{
    const auto table = Table();
    table->SetFilter("[tubo] = 'T1  '");
    const auto match = table->OpenRecordset();
    match->AddNew();
    match->SetField("tubo", "T1  ");
    match->Update();
    EXPECT_TRUE(match->Eof());
    match->MoveFirst();
    EXPECT_EQ(match->Fields("tubo"), "T1  ");
}

TEST_F(RecordSetTest, NothingWorksOnAClosedHandle)
{
    AddRow({{"b", "1"}});
    const auto table = Table();
    table->Close();
    EXPECT_THROW(table->Close(), RunTimeFailure);
    EXPECT_THROW(table->SetFilter(""), RunTimeFailure);
    EXPECT_THROW(table->OpenRecordset(), RunTimeFailure);
    EXPECT_THROW(table->MoveFirst(), RunTimeFailure);
    EXPECT_THROW(table->Eof(), RunTimeFailure);
    EXPECT_THROW(table->MoveNext(), RunTimeFailure);
    EXPECT_THROW(table->AddNew(), RunTimeFailure);
    EXPECT_THROW(table->Edit(), RunTimeFailure);
    EXPECT_THROW(table->Update(), RunTimeFailure);
    EXPECT_THROW(table->Fields("b"), RunTimeFailure);
    EXPECT_THROW(table->SetField("b", "2"), RunTimeFailure);
    EXPECT_THROW(table->KeepOthersFromWriting(), RunTimeFailure);
    EXPECT_THROW(table->LetOthersWrite(), RunTimeFailure);
}

TEST_F(RecordSetTest, AMatchOutlivesTheHandleItWasOpenedFrom)
{
    AddRow({{"tubo", "T1  "}});
    const auto table = Table();
    table->SetFilter("[tubo] = 'T1  '");
    const auto match = table->OpenRecordset();
    table->Close();
    match->Edit();
    match->SetField("b", "9");
    match->Update();
    EXPECT_EQ(RowAt(0), (SurveyRow{{"tubo", "T1  "}, {"b", "9"}}));
}

TEST_F(RecordSetTest, AFilterLeavesItsOwnHandleWhole)
{
    AddRow({{"tubo", "T1  "}});
    AddRow({{"tubo", "T2  "}});
    const auto table = Table();
    table->SetFilter("[tubo] = 'T2  '");
    EXPECT_THAT(Walk(*table, "tubo"), ElementsAre("T1  ", "T2  "));
    EXPECT_THAT(Walk(*table->OpenRecordset(), "tubo"), ElementsAre("T2  "));
    table->SetFilter("");
    EXPECT_THAT(Walk(*table->OpenRecordset(), "tubo"), ElementsAre("T1  ", "T2  "));
}

TEST_F(RecordSetTest, AFilterThatCannotBeReadFailsWhenItIsUsed)
{
    const auto table = Table();
    for (const auto* const criterion :
         {"tubo = 'T1'", "[tubo] = T1", "[tubo] = 'T1", "[tubo] LIKE 'T%'", "[tubo]='T1'",
          "[l26] = 'x'", "[tubo] = 'T1' or 1 = 1 --", "[] = 'x'"}) {
        EXPECT_NO_THROW(table->SetFilter(criterion)) << criterion;
        EXPECT_THROW(table->OpenRecordset(), RunTimeFailure) << criterion;
    }
}

TEST_F(RecordSetTest, NullMeetsNoFilter)
{
    AddRow({{"cliente", "ROSSI   "}});
    EXPECT_TRUE(Find("[tubo] = ''")->Eof());
    EXPECT_TRUE(Find("[cliente] = 'ROSSI   ' and [tubo] = ''")->Eof());
}

struct LookUp {
    const char* situation;
    std::string stored;
    std::string sought;
    bool found;
};

class LookUpTest : public RecordSetTest, public ::testing::WithParamInterface<LookUp>
{
};

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Table, LookUpTest,
    ::testing::Values(LookUp{"SameText", "ROSSI   ", "ROSSI   ", true},
                      LookUp{"OtherCase", "Rossi   ", "rOSSI   ", true},
                      LookUp{"FewerBlanks", "ROSSI   ", "ROSSI", false},
                      LookUp{"MoreBlanks", "ROSSI", "ROSSI   ", false},
                      LookUp{"BlankInFront", " ROSSI  ", "ROSSI   ", false},
                      LookUp{"AllBlanks", "        ", "        ", true},
                      LookUp{"AccentSameCase", "CITT\xC0   ", "citt\xC0   ", true},
                      LookUp{"AccentOtherCase", "CITT\xC0   ", "CITT\xE0   ", false},
                      LookUp{"NeighboursOfTheLetters", "@[`{    ", "`{@[    ", false},
                      LookUp{"Apostrophe", "DELL'ORO", "DELL'ORO", true},
                      LookUp{"ApostropheAtBothEnds", "'ROSSI '", "'ROSSI '", true},
                      LookUp{"OnlyApostrophes", "''''''''", "''''''''", true},
                      LookUp{"Brackets", "[R]OSSI]", "[R]OSSI]", true},
                      LookUp{"LooksLikeTheNextCondition", "A' and [", "A' and [", true},
                      LookUp{"LooksLikeAnotherCondition", "A' and [", "A       ", false},
                      LookUp{"PercentIsNoWildcard", "ROSSI   ", "%       ", false},
                      LookUp{"StarIsNoWildcard", "ROSSI   ", "ROSS*   ", false},
                      LookUp{"QuestionMarkIsNoWildcard", "ROSSI   ", "ROSS?   ", false},
                      LookUp{"UnderlineIsNoWildcard", "ROSSI   ", "ROSS_   ", false},
                      LookUp{"HashIsNoWildcard", "ROSSI1  ", "ROSSI#  ", false},
                      LookUp{"Wildcards", "%_*?#[!]", "%_*?#[!]", true},
                      LookUp{"StatementInTheText", "';DROP--", "';DROP--", true},
                      LookUp{"AlwaysTrue", "ROSSI   ", "' or 1=1", false},
                      LookUp{"NulAndTheSameBehindIt", "A\0BCDEFG"s, "a\0bcdefg"s, true},
                      LookUp{"NulAndOtherBehindIt", "A\0BCDEFG"s, "A\0BCDEFX"s, false},
                      LookUp{"NulForBlank", "A       "s, "A\0      "s, false},
                      LookUp{"AllNul", "\0\0\0\0\0\0\0\0"s, "\0\0\0\0\0\0\0\0"s, true},
                      LookUp{"NulAndShorter", "\0\0\0\0"s, "\0\0\0\0\0\0\0\0"s, false},
                      LookUp{"Backslash", "A\\'B    ", "A\\'B    ", true},
                      LookUp{"Quotes", "A\"B\"    ", "A\"B\"    ", true},
                      LookUp{"LineEnds", "A\r\nB    ", "A\r\nB    ", true},
                      LookUp{"EuroSign", "\x80 EURO  ", "\x80 euro  ", true},
                      LookUp{"UnassignedCode", "\x81\x8D\x8F\x90\x9D   ", "\x81\x8D\x8F\x90\x9D   ",
                             true}),
    SituationOf<LookUp>);

TEST_P(LookUpTest, ComparesFullWidthsAndTheCaseOfNoLetterButAToZ)
{
    const LookUp& look = GetParam();
    BlockHeader header = DefaultHeader(0);
    AddRow({{"cliente", "OTHER   "}, {"cantiere", header.cantiere}, {"tubo", header.tubo}});
    AddRow({{"cliente", look.stored}, {"cantiere", header.cantiere}, {"tubo", header.tubo}});
    const std::string rest = "' and [cantiere] = 'SITE0000' and [Tubo] = 'T   '";

    const auto match = Find("[cliente] = '" + look.sought + rest);

    ASSERT_EQ(!match->Eof(), look.found);
    if (look.found) {
        EXPECT_EQ(match->Fields("cliente"), look.stored);
        match->MoveNext();
        EXPECT_TRUE(match->Eof());
    }
    EXPECT_EQ(Rows().size(), 2U);
}

TEST_P(LookUpTest, HoldsInTheLastConditionToo)
{
    const LookUp& look = GetParam();
    AddRow({{"tubo", look.stored}});
    EXPECT_EQ(!Find("[tubo] = '" + look.sought + "'")->Eof(), look.found);
}

TEST_F(RecordSetTest, AllOfATubesRowsAreFoundFirstOneFirst)
{
    const BlockHeader header = DamHeader("00", "160926  ", "093015  ");
    for (const auto* const mark : {"first", "second", "third"}) {
        AddRow({{"b", "between"}});
        SurveyRow row = TubeRow(header);
        row["b"] = mark;
        AddRow(row);
    }
    EXPECT_THAT(Walk(*Find(TubeCriterion(header)), "b"), ElementsAre("first", "second", "third"));
}

TEST_F(RecordSetTest, FieldsDoNotRunIntoEachOther)
{
    AddRow({{"cliente", "AB"}, {"cantiere", "C"}, {"tubo", "D"}});
    EXPECT_TRUE(Find("[cliente] = 'A' and [cantiere] = 'BC' and [Tubo] = 'D'")->Eof());
    EXPECT_FALSE(Find("[cliente] = 'AB' and [cantiere] = 'C' and [Tubo] = 'D'")->Eof());
}

TEST_F(RecordSetTest, TwoDatabasesAreApart)
{
    AddRow({{"b", "1"}});
    EXPECT_TRUE(backend->OpenTable(folder / "other.mdb")->Eof());
}

TEST_F(RecordSetTest, WithoutAFileNothingOpens)
{
    EXPECT_THROW(backend->OpenTable({}), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
