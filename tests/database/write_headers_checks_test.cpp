#include "database/write_headers_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

struct Mark {
    const char* situation;
    std::string mark;
    int record; ///< 0 when none is written
    bool box;
};

class MarkTest : public WriteHeadersTest, public ::testing::WithParamInterface<Mark>
{
};

INSTANTIATE_TEST_SUITE_P(
    Table, MarkTest,
    ::testing::Values(
        Mark{"One", "1", 1, false}, Mark{"Twentynine", "29", 29, false},
        Mark{"Thirty", "30", 0, true}, Mark{"ThirtyOne", "31", 0, true}, Mark{"Zero", "0", 0, true},
        Mark{"Negative", "-1", 0, true}, Mark{"Letters", "abc", 0, true},
        Mark{"Blank", " ", 0, true}, Mark{"TwoAndAHalfToTheEvenOne", "2.5", 2, false},
        Mark{"ThreeAndAHalfToTheEvenOne", "3.5", 4, false},
        Mark{"OneAndAHalfToTheEvenOne", "1.5", 2, false}, Mark{"FractionDown", "7.4", 7, false},
        Mark{"FractionUp", "7.6", 8, false}, Mark{"HalfToRecordZeroIsNotWritten", "0.5", 0, false},
        Mark{"LessThanHalfIsNotWritten", "0.4", 0, false}, Mark{"MoreThanHalf", "0.6", 1, false},
        Mark{"HalfBelowThirtyReachesIt", "29.5", 30, false},
        Mark{"JustBelowThirtyReachesIt", "29.99", 30, false}, Mark{"BlankInFront", " 7", 7, false},
        Mark{"TextAfter", "7x", 7, false}, Mark{"Plus", "+7", 7, false},
        Mark{"LeadingZero", "07", 7, false}, Mark{"NoExponent", "1e1", 1, false},
        Mark{"NotNumeric", "\xE0", 0, true}),
    SituationOf<Mark>);

TEST_P(MarkTest, NamesTheRecordAndIsCleared)
{
    const auto& [situation, mark, record, box] = GetParam();
    if (box) boxes.Expect(kBadBlock);
    AddRow(DamRow(mark));
    AddRow(DamRow("12"));
    Write();
    EXPECT_THAT(Marks(), ElementsAre("", ""));
    EXPECT_EQ(StoredHeader(12), WrittenHeader());
    if (record == 0) {
        EXPECT_THAT(WrittenRecords(), ElementsAre(12));
    } else {
        EXPECT_EQ(StoredHeader(record), WrittenHeader());
        EXPECT_EQ(WrittenRecords().size(), 2U);
    }
}

struct Check {
    const char* situation;
    std::string field;
    Value value;
    std::string refusal; ///< empty when the row passes
    std::string passo = "1";
};

class CheckTest : public WriteHeadersTest, public ::testing::WithParamInterface<Check>
{
};

INSTANTIATE_TEST_SUITE_P(
    Table, CheckTest,
    ::testing::Values(
        Check{"DepthOfThreeCharacters", "profondità", "050", kBadDepth},
        Check{"DepthEmpty", "profondità", "", kBadDepth},
        Check{"DepthNull", "profondità", {}, kBadDepth},
        Check{"DepthNullAtHalfMetreSteps", "profondità", {}, kBadDepth, "0"},
        Check{"DeepestAtHalfMetreSteps", "profondità", "1000", "", "0"},
        Check{"TooDeepAtHalfMetreSteps", "profondità", "1001", kBadDepth, "0"},
        Check{"DeepestAtMetreSteps", "profondità", "2000", ""},
        Check{"TooDeepAtMetreSteps", "profondità", "2001", kBadDepth},
        Check{"DepthOfLettersIsZero", "profondità", "abcd", ""},
        Check{"DepthOfBlanksIsZero", "profondità", "    ", ""},
        Check{"DepthNegative", "profondità", "-999", ""},
        Check{"DepthOfFiveCharactersIsCut", "profondità", "01000", ""},
        Check{"DepthOfFiveCharactersTooDeep", "profondità", "20010", kBadDepth},
        Check{"StepSeven", "passo", "7", kBadStep},
        Check{"StepSevenAtADepthOfMetreSteps", "profondità", "1500", kBadStep, "7"},
        Check{"StepSevenTooDeep", "profondità", "2001", kBadDepth, "7"},
        Check{"StepNull", "passo", {}, kBadStep}, Check{"StepEmpty", "passo", "", kBadStep},
        Check{"StepBlank", "passo", " ", kBadStep}, Check{"StepLetter", "passo", "x", kBadStep},
        Check{"StepZero", "passo", "0", ""}, Check{"StepBlankAfter", "passo", "1 ", ""},
        Check{"GuidesThree", "guide", "3", kBadGuides},
        Check{"GuidesZero", "guide", "0", kBadGuides}, Check{"GuidesNull", "guide", {}, kBadGuides},
        Check{"GuidesEmpty", "guide", "", kBadGuides}, Check{"GuidesTwo", "guide", "2", ""},
        Check{"NorthNull", "nord", {}, kBadNorth}, Check{"NorthEmpty", "nord", "", kBadNorth},
        Check{"NorthWithoutSign", "nord", "0015", kBadNorth},
        Check{"NorthBlankInFront", "nord", " +15", kBadNorth},
        Check{"NorthFullCircle", "nord", "+360", ""},
        Check{"NorthBeyond", "nord", "+361", kBadNorth},
        Check{"NorthHasNoLowerBound", "nord", "-999", ""},
        Check{"NorthLetters", "nord", "+abc", ""}, Check{"NorthSignAlone", "nord", "-", ""}),
    SituationOf<Check>);

TEST_P(CheckTest, StopsTheWalkOrLetsTheRowPass)
{
    const auto& [situation, field, value, refusal, passo] = GetParam();
    SurveyRow row = DamRowWith("passo", passo);
    row[field] = value;
    if (value.IsNull()) row.erase(field);
    AddRow(row);
    AddRow(DamRow("12"));
    if (!refusal.empty()) boxes.Expect(refusal);
    Write();
    if (refusal.empty()) {
        EXPECT_THAT(WrittenRecords(), ElementsAre(5, 12));
        EXPECT_THAT(Marks(), ElementsAre("", ""));
    } else {
        EXPECT_THAT(WrittenRecords(), ElementsAre());
        EXPECT_THAT(Marks(), ElementsAre("5", "12"));
    }
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, FieldsThatPassAreTakenUnchanged)
{
    SurveyRow row = DamRow("5");
    row["profondità"] = "01000";
    row["passo"] = "0";
    row["guide"] = "2";
    row["nord"] = "-";
    AddRow(row);
    Write();
    BlockHeader expected = WrittenHeader();
    expected.profondità = "0100";
    expected.passo = "0";
    expected.guide = "2";
    expected.nord = "-   ";
    EXPECT_EQ(StoredHeader(5), expected);
}

struct Tube {
    const char* situation;
    Value stored;
    std::string written;
};

class TubeTest : public WriteHeadersTest, public ::testing::WithParamInterface<Tube>
{
};

using namespace std::string_literals;

INSTANTIATE_TEST_SUITE_P(
    Table, TubeTest,
    ::testing::Values(Tube{"Short", "ab", "AB      "}, Tube{"Empty", "", "        "},
                      Tube{"Long", "abcdefghij", "ABCDEFGH"},
                      Tube{"Accents", "\xE0\xE8\xFF\xDF\xB5", "\xC0\xC8\x9F\xDF\xB5   "},
                      Tube{"Nul", "a\0b"s, "A\0B     "s},
                      Tube{"Apostrophe", "dell'oro", "DELL'ORO"},
                      Tube{"NullKeepsWhatStood", {}, "WORKCLIE"}),
    SituationOf<Tube>);

TEST_P(TubeTest, IsPaddedCutAndTurnedToCapitals)
{
    const auto& [situation, stored, written] = GetParam();
    AddRow(DamRowWith("cliente", stored));
    Write();
    EXPECT_EQ(StoredHeader(5).cliente.Text(), written);
    EXPECT_EQ(StoredHeader(5).cantiere.Text(), "DIGA A  ");
}

TEST_F(WriteHeadersTest, SiteAndTubeAreTreatedLikeTheClient)
{
    SurveyRow row = DamRow("5");
    row["cantiere"] = "diga b e altro";
    row["tubo"] = "t";
    AddRow(row);
    AddRow(DamRowWith("tubo", {}));
    Write();
    EXPECT_EQ(StoredHeader(5).cantiere.Text(), "DIGA A  ");
    EXPECT_EQ(StoredHeader(5).tubo.Text(), "T   "); // Null leaves the tube of the row before
}

TEST_F(WriteHeadersTest, NullInEveryFieldOfTheTubeKeepsTheWorkingOnes)
{
    SurveyRow row = DamRow("5");
    row.erase("cliente");
    row.erase("cantiere");
    row.erase("tubo");
    AddRow(row);
    Write();
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "WORKCLIE");
    EXPECT_EQ(StoredHeader(5).cantiere.Text(), "WORKSITE");
    EXPECT_EQ(StoredHeader(5).tubo.Text(), "WORK");
}

struct Slots {
    const char* situation;
    int firstNull; ///< 26 when every slot is filled
    const char* nlet;
};

class SlotsTest : public WriteHeadersTest, public ::testing::WithParamInterface<Slots>
{
};

INSTANTIATE_TEST_SUITE_P(Table, SlotsTest,
                         ::testing::Values(Slots{"None", 0, "00"}, Slots{"One", 1, "01"},
                                           Slots{"Ten", 10, "10"}, Slots{"AllButTheLast", 25, "25"},
                                           Slots{"AllKeepTheWorkingNumber", 26, "66"}),
                         SituationOf<Slots>);

TEST_P(SlotsTest, TheFirstNullOneIsTheNextReading)
{
    const auto& [situation, firstNull, nlet] = GetParam();
    SurveyRow row = DamRow("5");
    row["nlet"] = 3.0;
    for (int slot = 0; slot < kSlotCount; ++slot)
        row[std::string(SlotName(slot))] = slot == 0 ? "" : "150926  080000  ";
    if (firstNull < kSlotCount) row.erase(std::string(SlotName(firstNull)));
    AddRow(row);
    Write();
    EXPECT_EQ(StoredHeader(5).nlet.Text(), nlet);
}

TEST_F(WriteHeadersTest, TheNorthIsTakenBeforeItsNumberIsChecked)
{
    AddRow(DamRowWith("nord", "+999"));
    boxes.Expect(kBadNorth, [&] { EXPECT_EQ(state.blockHeader.nord.Text(), "+999"); });
    Write();
}

TEST_F(WriteHeadersTest, TheDepthIsTakenBeforeItIsFoundTooDeep)
{
    AddRow(DamRowWith("profondità", "9999"));
    boxes.Expect(kBadDepth, [&] {
        EXPECT_EQ(state.blockHeader.tubo.Text(), "T1  ");
        EXPECT_EQ(state.blockHeader.profondità.Text(), "9999");
        EXPECT_EQ(state.blockHeader.passo.Text(), "9");
    });
    Write();
}

TEST_F(WriteHeadersTest, ATooShortDepthIsNotTakenButTheTubeIs)
{
    AddRow(DamRowWith("profondità", "123"));
    boxes.Expect(kBadDepth, [&] {
        EXPECT_EQ(state.blockHeader.tubo.Text(), "T1  ");
        EXPECT_EQ(state.blockHeader.profondità.Text(), "0001");
    });
    Write();
}

} // namespace
} // namespace tarvex::tests
