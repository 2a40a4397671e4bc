#include "database/write_headers.h"

#include "database/read_headers.h"
#include "database/survey_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

constexpr auto kBadBlock = "Attention: Block no. is incorect";
constexpr auto kBadDepth = "Attention: Invalid DEPTH value";
constexpr auto kBadStep = "Attention: Invalid STEP value";
constexpr auto kBadGuides = "Attention: Invalid GUIDES value";
constexpr auto kBadNorth = "Attention: Invalid NORTH value";

/// A row that passes every check, with two readings.
SurveyRow DamRow(const Value& mark)
{
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["l0"] = "150926  080000  ";
    row["l1"] = "160926  093015  ";
    row["b"] = mark;
    return row;
}

SurveyRow DamRowWith(const std::string& field, const Value& value)
{
    SurveyRow row = DamRow("5");
    row[field] = value;
    if (value.IsNull()) row.erase(field);
    return row;
}

class WriteHeadersTest : public SurveyTest
{
protected:
    WriteHeadersTest() { state.BlockHeader = working; }

    /// What the working header holds when the command starts; no field is a default.
    static BlockHeader WorkingHeader()
    {
        BlockHeader header;
        header.cliente = "WORKCLIE";
        header.cantiere = "WORKSITE";
        header.tubo = "WORK";
        header.profondità = "0001";
        header.passo = "9";
        header.guide = "8";
        header.nord = "?777";
        header.nlet = "66";
        header.data = "WORKDATA";
        header.ora = "WORKORA ";
        header.punto = "P";
        header.gain1 = "GAIN1..";
        header.gain2 = "GAIN2..";
        header.zero1 = "ZERO1..";
        header.zero2 = "ZERO2..";
        return header;
    }

    /// What a marked DamRow makes of it.
    static BlockHeader WrittenHeader()
    {
        BlockHeader header = WorkingHeader();
        const BlockHeader dam = DamHeader("02", "", "");
        header.cliente = dam.cliente;
        header.cantiere = dam.cantiere;
        header.tubo = dam.tubo;
        header.profondità = dam.profondità;
        header.passo = dam.passo;
        header.guide = dam.guide;
        header.nord = dam.nord;
        header.nlet = dam.nlet;
        return header;
    }

    /// The numbers of the records that are no longer the default ones.
    std::vector<int> WrittenRecords() const
    {
        std::vector<int> written;
        for (int number = 1; number <= 30; ++number)
            if (StoredHeader(number) != DefaultHeader(number - 1)) written.push_back(number);
        return written;
    }

    std::vector<Value> Marks()
    {
        std::vector<Value> marks;
        for (SurveyRow& row : Rows())
            marks.push_back(row["b"]);
        return marks;
    }

    void ExpectPanelShowsBlockOne()
    {
        EXPECT_EQ(state.CurrentBlock, 1);
        EXPECT_EQ(panel.Text2.Text(), "01");
        EXPECT_EQ(state.BlockHeader, StoredHeader(1));
        EXPECT_EQ(panel.Text3.Text(), StoredHeader(1).cliente.Text());
        EXPECT_EQ(panel.Text18.Text(), StoredHeader(1).gain1.Text());
        EXPECT_EQ(panel.Text22.Text(), StoredHeader(1).punto.Text());
        EXPECT_EQ(FileBytes(state.HeaderFilePath).size(), 2310U);
        EXPECT_EQ(finishedHandlers, 1);
        EXPECT_EQ(world.passes, 2);
    }

    const BlockHeader working = WorkingHeader();
};

TEST_F(WriteHeadersTest, AMarkedRowBecomesTheHeaderOfItsNextReading)
{
    AddRow(DamRow("5"));
    state.CurrentBlock = 7;
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre(5));
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
    EXPECT_THAT(Rows(), ElementsAre(DamRow("")));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, TheTargetRecordItselfIsNotRead)
{
    BlockHeader target = DamHeader("11", "311299  ", "235959  ");
    target.gain1 = "+2.0000";
    PutHeader(5, target);
    AddRow(DamRow("5"));
    Write();
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
}

TEST_F(WriteHeadersTest, BlockOneIsOnThePanelAtOnce)
{
    AddRow(DamRow("1"));
    Write();
    EXPECT_EQ(panel.Text3.Text(), "ROSSI   ");
    EXPECT_EQ(panel.Text10.Text(), "02");
    EXPECT_EQ(panel.Text18.Text(), "GAIN1..");
    ExpectPanelShowsBlockOne();
}

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
    ::testing::Values(Mark{"One", "1", 1, false}, Mark{"Twentynine", "29", 29, false},
                      Mark{"Thirty", "30", 0, true}, Mark{"ThirtyOne", "31", 0, true},
                      Mark{"Zero", "0", 0, true}, Mark{"Negative", "-1", 0, true},
                      Mark{"Letters", "abc", 0, true}, Mark{"Blank", " ", 0, true},
                      Mark{"TwoAndAHalfToTheEvenOne", "2.5", 2, false},
                      Mark{"ThreeAndAHalfToTheEvenOne", "3.5", 4, false},
                      Mark{"OneAndAHalfToTheEvenOne", "1.5", 2, false},
                      Mark{"FractionDown", "7.4", 7, false}, Mark{"FractionUp", "7.6", 8, false},
                      Mark{"HalfToRecordNoughtIsNotWritten", "0.5", 0, false},
                      Mark{"LessThanHalfIsNotWritten", "0.4", 0, false},
                      Mark{"MoreThanHalf", "0.6", 1, false},
                      Mark{"HalfBelowThirtyReachesIt", "29.5", 30, false},
                      Mark{"JustBelowThirtyReachesIt", "29.99", 30, false},
                      Mark{"BlankInFront", " 7", 7, false}, Mark{"TextBehind", "7x", 7, false},
                      Mark{"Plus", "+7", 7, false}, Mark{"LeadingNought", "07", 7, false},
                      Mark{"NoExponent", "1e1", 1, false}, Mark{"NotNumeric", "\xE0", 0, true}),
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
        Check{"DepthOfLettersIsNought", "profondità", "abcd", ""},
        Check{"DepthOfBlanksIsNought", "profondità", "    ", ""},
        Check{"DepthNegative", "profondità", "-999", ""},
        Check{"DepthOfFiveCharactersIsCut", "profondità", "01000", ""},
        Check{"DepthOfFiveCharactersTooDeep", "profondità", "20010", kBadDepth},
        Check{"StepSeven", "passo", "7", kBadStep},
        Check{"StepSevenAtADepthOfMetreSteps", "profondità", "1500", kBadStep, "7"},
        Check{"StepSevenTooDeep", "profondità", "2001", kBadDepth, "7"},
        Check{"StepNull", "passo", {}, kBadStep}, Check{"StepEmpty", "passo", "", kBadStep},
        Check{"StepBlank", "passo", " ", kBadStep}, Check{"StepLetter", "passo", "x", kBadStep},
        Check{"StepNought", "passo", "0", ""}, Check{"StepBlankBehind", "passo", "1 ", ""},
        Check{"GuidesThree", "guide", "3", kBadGuides},
        Check{"GuidesNought", "guide", "0", kBadGuides},
        Check{"GuidesNull", "guide", {}, kBadGuides}, Check{"GuidesEmpty", "guide", "", kBadGuides},
        Check{"GuidesTwo", "guide", "2", ""}, Check{"NorthNull", "nord", {}, kBadNorth},
        Check{"NorthEmpty", "nord", "", kBadNorth},
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

TEST_F(WriteHeadersTest, FieldsThatPassAreTakenAsTheyStand)
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

TEST_F(WriteHeadersTest, WithoutAMarkNothingIsWrittenAndEveryNullMarkBecomesEmpty)
{
    AddRow(DamRowWith("b", {}));
    AddRow(DamRow(""));
    AddRow(DamRowWith("b", {}));
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre());
    EXPECT_THAT(Rows(), ElementsAre(DamRow(""), DamRow(""), DamRow("")));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, ARefusedBlockTakesNothingFromItsRow)
{
    AddRow(DamRow("30"));
    boxes.Expect(kBadBlock, [&] { EXPECT_EQ(state.BlockHeader, working); });
    Write();
}

TEST_F(WriteHeadersTest, TheSecondOfThreeStopsTheWalk)
{
    AddRow(DamRow("5"));
    SurveyRow second = DamRow("6");
    second["cliente"] = "second";
    second["profondità"] = "0900";
    second["passo"] = "0";
    second["guide"] = "2";
    second["nord"] = "x015";
    second.erase("l0");
    AddRow(second);
    AddRow(DamRow("7"));
    AddRow(DamRowWith("b", {}));
    boxes.Expect(kBadNorth, [&] {
        BlockHeader held = WrittenHeader();
        held.cliente = "SECOND";
        held.profondità = "0900";
        held.passo = "0";
        held.guide = "2";
        EXPECT_EQ(state.BlockHeader, held);
        EXPECT_EQ(panel.Text3.Text(), "CLIENT 1");
    });
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre(5));
    EXPECT_EQ(StoredHeader(5), WrittenHeader());
    EXPECT_THAT(Marks(), ElementsAre("", "6", "7", Value()));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, TheNorthIsTakenBeforeItsNumberIsChecked)
{
    AddRow(DamRowWith("nord", "+999"));
    boxes.Expect(kBadNorth, [&] { EXPECT_EQ(state.BlockHeader.nord.Text(), "+999"); });
    Write();
}

TEST_F(WriteHeadersTest, TheDepthIsTakenBeforeItIsFoundTooDeep)
{
    AddRow(DamRowWith("profondità", "9999"));
    boxes.Expect(kBadDepth, [&] {
        EXPECT_EQ(state.BlockHeader.tubo.Text(), "T1  ");
        EXPECT_EQ(state.BlockHeader.profondità.Text(), "9999");
        EXPECT_EQ(state.BlockHeader.passo.Text(), "9");
    });
    Write();
}

TEST_F(WriteHeadersTest, ATooShortDepthIsNotTakenButTheTubeIs)
{
    AddRow(DamRowWith("profondità", "123"));
    boxes.Expect(kBadDepth, [&] {
        EXPECT_EQ(state.BlockHeader.tubo.Text(), "T1  ");
        EXPECT_EQ(state.BlockHeader.profondità.Text(), "0001");
    });
    Write();
}

TEST_F(WriteHeadersTest, OfTwoRowsForOneBlockTheLaterStays)
{
    AddRow(DamRow("5"));
    SurveyRow later = DamRow("5");
    later["cliente"] = "LATER";
    AddRow(later);
    Write();
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "LATER   ");
    EXPECT_THAT(Marks(), ElementsAre("", ""));
}

TEST_F(WriteHeadersTest, ATableOfNoRowsGivesNoBox)
{
    Write();
    EXPECT_THAT(engine.calls, ElementsAre("OpenTable", "MoveFirst", "Eof", "Close"));
    EXPECT_THAT(WrittenRecords(), ElementsAre());
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, WithoutADatabaseTheDepthBoxComesOnce)
{
    AddRow(DamRow("5"));
    engine.fails = [](int, const std::string& call) { return call == "OpenTable"; };
    boxes.Expect(kBadDepth, [&] { EXPECT_EQ(state.BlockHeader, working); });
    Write();
    EXPECT_THAT(engine.calls, ElementsAre("OpenTable"));
    EXPECT_THAT(WrittenRecords(), ElementsAre());
    EXPECT_THAT(Marks(), ElementsAre("5"));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, ADatabaseThatGoesAwayStopsTheWalkWithTheDepthBox)
{
    AddRow(DamRow("5"));
    AddRow(DamRow("6"));
    int rows = 0;
    engine.fails = [&](int, const std::string& call) { return (rows += call == "Eof") >= 2; };
    boxes.Expect(kBadDepth);
    Write();
    EXPECT_THAT(WrittenRecords(), ElementsAre(5));
    EXPECT_THAT(Marks(), ElementsAre("", "6"));
}

TEST_F(WriteHeadersTest, WithoutAHeaderFileTheMarksAreClearedAllTheSame)
{
    AddRow(DamRow("5"));
    state.HeaderFilePath = folder.Path();
    Write();
    EXPECT_THAT(Marks(), ElementsAre(""));
    EXPECT_EQ(panel.Text3.Text(), "ROSSI   "); // what the working header holds is shown
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(WriteHeadersTest, TheHandleIsSpentAtTheEnd)
{
    AddRow(DamRow("5"));
    Write();
    EXPECT_THROW(survey.SurveyTable.Eof(), RunTimeFailure);
    Write();
    EXPECT_THAT(engine.calls, Contains("OpenTable").Times(2));
}

TEST_F(WriteHeadersTest, ACommandThatRanInTheFirstEventsLeavesItsOwnHandleAlone)
{
    AddRow(DamRow("5"));
    world.At(0, [&] { Read(); });
    Write();
    EXPECT_EQ(gridsShown, 1);
    EXPECT_EQ(StoredHeader(5).cliente.Text(), "ROSSI   ");
    EXPECT_THAT(Rows().size(), 31U);
    EXPECT_EQ(RowAt(0), DamRow(""));
}

TEST_F(WriteHeadersTest, ThePanelShowsBlockOneWhenTheLastEventsRun)
{
    state.CurrentBlock = 9;
    panel.Text2.SetText("09");
    std::string shown;
    world.At(0, [&] { world.At(0, [&] { shown = panel.Text2.Text(); }); });
    Write();
    EXPECT_EQ(shown, "01");
}

TEST_F(WriteHeadersTest, TheEndOfTheProgramCutsItOff)
{
    AddRow(DamRow("5"));
    world.EndProgramAt(0);
    Write();
    EXPECT_EQ(finishedHandlers, 0);
    EXPECT_TRUE(engine.calls.empty());
    EXPECT_THAT(Marks(), ElementsAre("5"));
}

TEST_F(WriteHeadersTest, OneRowIsOneListOfSteps)
{
    AddRow(DamRow("5"));
    Write();
    EXPECT_THAT(engine.calls,
                ElementsAre("OpenTable", "MoveFirst", "Eof", "Fields b", "Fields b",
                            "Fields cliente", "Fields cantiere", "Fields tubo", "Fields profondità",
                            "Fields profondità", "Fields passo", "Fields profondità",
                            "Fields passo", "Fields passo", "Fields guide", "Fields guide",
                            "Fields nord", "Fields nord", "Fields nord", "Fields nord", "Fields l0",
                            "Fields l1", "Fields l2", "Edit", "SetField b", "Update", "MoveNext",
                            "Eof", "Close"));
}

/// One step of the walk over one row, and what becomes of it when that step fails once.
struct Fault {
    const char* situation;
    const char* step;
    int occurrence;
    const char* refusal;
    std::function<void(BlockHeader&)> change; ///< of the header written otherwise
    bool markStays = false;
    bool written = true;
};

class FaultTest : public WriteHeadersTest, public ::testing::WithParamInterface<Fault>
{
};

INSTANTIATE_TEST_SUITE_P(
    Table, FaultTest,
    ::testing::Values(
        Fault{"FirstRow", "MoveFirst", 1, "", {}}, Fault{"EndTestBeforeTheRow", "Eof", 1, "", {}},
        Fault{"MarkTestCountsAsMarked", "Fields b", 1, "", {}},
        Fault{"BlockTestCountsAsPassedButNoNumberIsKnown", "Fields b", 2, "", {}, false, false},
        Fault{"Client", "Fields cliente", 1, "",
              [](BlockHeader& header) { header.cliente = "WORKCLIE"; }},
        Fault{"Site", "Fields cantiere", 1, "",
              [](BlockHeader& header) { header.cantiere = "WORKSITE"; }},
        Fault{"Tube", "Fields tubo", 1, "", [](BlockHeader& header) { header.tubo = "WORK"; }},
        Fault{"LengthTestCountsAsTooShort", "Fields profondità", 1, kBadDepth, {}, true, false},
        Fault{"Depth", "Fields profondità", 2, "",
              [](BlockHeader& header) { header.profondità = "0001"; }},
        Fault{"DepthTestCountsAsTooDeep", "Fields profondità", 3, kBadDepth, {}, true, false},
        Fault{"StepTestCountsAsPassed", "Fields passo", 2, "", {}},
        Fault{"Step", "Fields passo", 3, "", [](BlockHeader& header) { header.passo = "9"; }},
        Fault{"GuidesTestCountsAsPassed", "Fields guide", 1, "", {}},
        Fault{"Guides", "Fields guide", 2, "", [](BlockHeader& header) { header.guide = "8"; }},
        Fault{"SignTestCountsAsPassed", "Fields nord", 1, "", {}},
        Fault{"NorthIsTakenTwice", "Fields nord", 2, "", {}},
        Fault{"NorthTestCountsAsPassed", "Fields nord", 3, "", {}},
        Fault{"NorthWasTakenBefore", "Fields nord", 4, "", {}},
        Fault{"SlotTestCountsAsNull", "Fields l1", 1, "",
              [](BlockHeader& header) { header.nlet = "01"; }},
        Fault{"Edit", "Edit", 1, "", {}, true}, Fault{"Mark", "SetField b", 1, "", {}, true},
        Fault{"Update", "Update", 1, "", {}, true},
        Fault{"NextRowWalksTheRowAgain", "MoveNext", 1, "", {}},
        Fault{"Close", "Close", 1, "", {}}),
    SituationOf<Fault>);

TEST_P(FaultTest, SkipsThatStepAndRunsTheNext)
{
    const Fault& fault = GetParam();
    AddRow(DamRow("5"));
    int occurrence = 0;
    engine.fails = [&](int, const std::string& call) {
        return call == fault.step && ++occurrence == fault.occurrence;
    };
    if (*fault.refusal != '\0') boxes.Expect(fault.refusal);
    Write();
    EXPECT_GE(occurrence, fault.occurrence);
    EXPECT_THAT(Marks(), ElementsAre(fault.markStays ? "5" : ""));
    BlockHeader expected = WrittenHeader();
    if (fault.change) fault.change(expected);
    EXPECT_EQ(StoredHeader(5), fault.written ? expected : DefaultHeader(4));
    ExpectPanelShowsBlockOne();
}

TEST_F(WriteHeadersTest, ADepthLimitByAFailingStepTestIsThatOfHalfMetres)
{
    AddRow(DamRowWith("profondità", "1001"));
    bool failed = false;
    engine.fails = [&](int, const std::string& call) {
        return !failed && (failed = call == "Fields passo");
    };
    boxes.Expect(kBadDepth);
    Write();
}

TEST_F(WriteHeadersTest, WhatReadHeadersFiledGoesBackForTheNextReading)
{
    PutHeader(3, DamHeader("00", "160926  ", "093015  "));
    Read();
    const auto table = backend->OpenTable(survey.DatabasePath);
    table->MoveNext();
    table->MoveNext();
    table->Edit();
    table->SetField("b", "9");
    table->Update();
    table->Close();
    Write();
    EXPECT_EQ(StoredHeader(9).cliente.Text(), "ROSSI   ");
    EXPECT_EQ(StoredHeader(9).nlet.Text(), "01");
    // Date, time and calibration are those of record 30, where the reading had ended.
    EXPECT_EQ(StoredHeader(9).data, DefaultHeader(29).data);
}

} // namespace
} // namespace tarvex::tests
