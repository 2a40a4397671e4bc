#include "database/read_headers_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

TEST_F(ReadHeadersTest, DefaultHeadersGetRowsWithoutAReading)
{
    Read();

    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 30U);
    for (int index = 0; index < 30; ++index)
        EXPECT_EQ(rows[static_cast<std::size_t>(index)], TubeRow(DefaultHeader(index)));
    EXPECT_EQ(gridsShown, 1);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadHeadersTest, ANewTubeStartsAtZeroWhateverItsReadoutNumber)
{
    PutHeader(1, DamHeader("05", "160926  ", "093015  "));
    Read();
    EXPECT_EQ(RowAt(0), With(TubeRow(kReading), {{"l0", kFiled}}));
}

TEST_F(ReadHeadersTest, TwoBlocksOfOneTubeFileTwoReadingsInOnePass)
{
    PutHeader(1, kReading);
    PutHeader(2, DamHeader("01", "170926  ", "101112  "));
    Read();
    EXPECT_EQ(Rows().size(), 29U);
    EXPECT_EQ(RowAt(0),
              With(TubeRow(kReading), {{"l0", kFiled}, {"l1", "170926  101112  "}, {"nlet", 1.0}}));
}

TEST_F(ReadHeadersTest, ReadingTwiceRewritesTheSameReading)
{
    PutHeader(1, kReading);
    PutHeader(2, DamHeader("01", "170926  ", "101112  "));
    Read();
    const auto rows = Rows();
    Read();
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(gridsShown, 2);
}

TEST_F(ReadHeadersTest, AKnownTubeTakesTheSevenFieldsOfTheHeader)
{
    SurveyRow before = TubeRow(kReading);
    before["profondità"] = "0100";
    before["passo"] = "0";
    before["guide"] = "2";
    before["nord"] = "-001";
    before["b"] = "12";
    EXPECT_EQ(FoldInto(before, kReading), With(TubeRow(kReading), {{"l0", kFiled}, {"b", "12"}}));
}

TEST_F(ReadHeadersTest, ReadingZeroReplacesTheFirstSlotUncompared)
{
    const auto before =
        With(TubeRow(kReading), {{"l0", kEarlier}, {"l1", kEarlier}, {"nlet", 1.0}});
    EXPECT_EQ(FoldInto(before, kReading), With(before, {{"l0", kFiled}, {"nlet", 0.0}}));
}

struct Filing {
    const char* situation;
    const char* nlet;
    SurveyRow before; ///< beside the tube's own fields
    SurveyRow after;  ///< what has changed
    bool limit = false;
};

class FilingTest : public ReadHeadersTest, public ::testing::WithParamInterface<Filing>
{
};

INSTANTIATE_TEST_SUITE_P(
    Table, FilingTest,
    ::testing::Values(
        Filing{"OnTopOfAnotherReading", "01", {{"l0", kEarlier}}, {{"l1", kFiled}, {"nlet", 1.0}}},
        Filing{
            "OtherDateOnly", "01", {{"l0", "150926  093015  "}}, {{"l1", kFiled}, {"nlet", 1.0}}},
        Filing{
            "OtherTimeOnly", "01", {{"l0", "160926  093016  "}}, {{"l1", kFiled}, {"nlet", 1.0}}},
        Filing{"SameReadingStepsBack", "01", {{"l0", kFiled}}, {{"nlet", "00"}}},
        Filing{"NullBeforeStepsBack", "03", {{"l0", kEarlier}}, {{"nlet", "02"}}},
        Filing{"NullInTheVeryFirstSlot", "01", {}, {{"nlet", "00"}}},
        Filing{"ShortTextBeforeIsAnother", "02", {{"l1", "x"}}, {{"l2", kFiled}, {"nlet", 2.0}}},
        Filing{"EmptyTextBeforeIsAnother", "02", {{"l1", ""}}, {{"l2", kFiled}, {"nlet", 2.0}}},
        Filing{"SameWithMoreBehindIt", "02", {{"l1", kFiled + "x"}}, {{"nlet", "01"}}},
        Filing{"ReplacesWhatTheSlotHeld",
               "02",
               {{"l1", kEarlier}, {"l2", kEarlier}},
               {{"l2", kFiled}, {"nlet", 2.0}}},
        Filing{"Twentyfour", "24", {{"l23", kEarlier}}, {{"l24", kFiled}, {"nlet", 24.0}}},
        Filing{
            "TwentyfiveWithoutABox", "25", {{"l24", kEarlier}}, {{"l25", kFiled}, {"nlet", 25.0}}},
        Filing{"TwentyfiveSameStepsBack", "25", {{"l24", kFiled}}, {{"nlet", "24"}}},
        Filing{"TwentysixIsTakenAsTwentyfive",
               "26",
               {{"l24", kEarlier}},
               {{"l25", kFiled}, {"nlet", 25.0}},
               true},
        Filing{"ThirtyIsTakenAsTwentyfive",
               "30",
               {{"l24", kEarlier}},
               {{"l25", kFiled}, {"nlet", 25.0}},
               true},
        Filing{"ThirtyOnTheSameReading", "30", {{"l24", kFiled}}, {{"nlet", "24"}}, true},
        Filing{"ThirtyOnNull", "30", {}, {{"nlet", "24"}}, true},
        Filing{"NegativeFilesNothing", "-1", {{"l0", kEarlier}}, {{"nlet", -1.0}}},
        Filing{"FractionFilesNothing", ".5", {{"l0", kEarlier}}, {{"nlet", 0.5}}},
        Filing{"LettersAreZero", "AB", {{"l0", kEarlier}}, {{"l0", kFiled}, {"nlet", 0.0}}},
        Filing{"OneDigit", "1 ", {{"l0", kEarlier}}, {{"l1", kFiled}, {"nlet", 1.0}}},
        Filing{"NumberBeforeMarkStays",
               "01",
               {{"l0", kEarlier}, {"b", "7"}},
               {{"l1", kFiled}, {"nlet", 1.0}}}),
    SituationOf<Filing>);

TEST_P(FilingTest, ByTheReadoutNumberAndTheSlotBefore)
{
    const Filing& filing = GetParam();
    if (filing.limit) boxes.Expect(kLimit);
    const auto before = With(With(TubeRow(kReading), {{"nlet", "99"}}), filing.before);

    EXPECT_EQ(FoldInto(before, DamHeader(filing.nlet, "160926  ", "093015  ")),
              With(before, filing.after));
}

TEST_F(ReadHeadersTest, TheLimitBoxComesForEachSuchHeaderAndTheWalkGoesOn)
{
    PutHeader(1, kReading);
    PutHeader(2, DamHeader("26", "170926  ", "101112  "));
    PutHeader(3, DamHeader("27", "180926  ", "101112  "));
    boxes.Expect(kLimit);
    boxes.Expect(kLimit);
    Read();
    EXPECT_EQ(RowAt(0), With(TubeRow(kReading), {{"l0", kFiled}, {"nlet", "24"}}));
    EXPECT_EQ(Rows().size(), 28U);
}

struct Placeholder {
    const char* situation;
    const char* data;
    const char* ora;
    bool reading;
};

class PlaceholderTest : public ReadHeadersTest, public ::testing::WithParamInterface<Placeholder>
{
};

INSTANTIATE_TEST_SUITE_P(Table, PlaceholderTest,
                         ::testing::Values(Placeholder{"Both", "GGMMAA  ", "hhmmss  ", false},
                                           Placeholder{"Date", "GGMMAA  ", "093015  ", false},
                                           Placeholder{"Time", "160926  ", "hhmmss  ", false},
                                           Placeholder{"Default", "DDMMYY  ", "hhmmss  ", false},
                                           Placeholder{"DefaultDate", "DDMMYY  ", "093015  ", true},
                                           Placeholder{"SmallDate", "ggmmaa  ", "093015  ", true},
                                           Placeholder{"CapitalTime", "160926  ", "HHMMSS  ", true},
                                           Placeholder{"NoBlanks", "GGMMAAXX", "hhmmssXX", true}),
                         SituationOf<Placeholder>);

TEST_P(PlaceholderTest, DecidesWhetherANewTubeHasAReading)
{
    const auto [situation, data, ora, reading] = GetParam();
    PutHeader(1, DamHeader("00", data, ora));
    Read();
    const SurveyRow expected = TubeRow(kReading);
    EXPECT_EQ(RowAt(0), reading ? With(expected, {{"l0", std::string(data) + ora}}) : expected);
}

TEST_P(PlaceholderTest, DecidesWhetherAKnownTubeChangesAtAll)
{
    const auto [situation, data, ora, reading] = GetParam();
    const SurveyRow before = With(TubeRow(kReading), {{"nord", "-090"}, {"nlet", "07"}});
    const SurveyRow changed =
        With(TubeRow(kReading), {{"l0", std::string(data) + ora}, {"nlet", 0.0}});
    EXPECT_EQ(FoldInto(before, DamHeader("00", data, ora)), reading ? changed : before);
}

TEST_F(ReadHeadersTest, KnownTubesAreFoundInAnyCase)
{
    SurveyRow before = TubeRow(kReading);
    before["cliente"] = "Rossi   ";
    before["cantiere"] = "diga a  ";
    before["tubo"] = "t1  ";
    EXPECT_EQ(FoldInto(before, kReading), With(TubeRow(kReading), {{"l0", kFiled}}));
}

TEST_F(ReadHeadersTest, EachOfClientSiteAndTubeMakesAnotherTube)
{
    AddRow(TubeRow(kReading));
    BlockHeader client = kReading;
    client.cliente = "ROSSI2";
    BlockHeader site = kReading;
    site.cantiere = "DIGA B";
    BlockHeader tube = kReading;
    tube.tubo = "T2";
    PutHeader(1, client);
    PutHeader(2, site);
    PutHeader(3, tube);
    Read();
    EXPECT_EQ(Rows().size(), 31U);
    EXPECT_EQ(RowAt(0), TubeRow(kReading));
    EXPECT_EQ(RowAt(1), With(TubeRow(client), {{"l0", kFiled}}));
    EXPECT_EQ(RowAt(2), With(TubeRow(site), {{"l0", kFiled}}));
    EXPECT_EQ(RowAt(3), With(TubeRow(tube), {{"l0", kFiled}}));
}

TEST_F(ReadHeadersTest, OnlyTheFirstOfSeveralRowsOfATubeChanges)
{
    AddRow(TubeRow(kReading));
    AddRow(TubeRow(kReading));
    PutHeader(1, kReading);
    Read();
    EXPECT_EQ(RowAt(0), With(TubeRow(kReading), {{"l0", kFiled}}));
    EXPECT_EQ(RowAt(1), TubeRow(kReading));
}

TEST_F(ReadHeadersTest, NamesThatBreakQuotesAreKnownTheSecondTime)
{
    using namespace std::string_literals;
    const std::vector<std::string> names = {"DELL'ORO", "A' and [",   "';DROP--",     "' or '1'",
                                            "[b] = ''", "A\0' B\0C"s, "\xC0\xC8' % *"};
    for (std::size_t index = 0; index < names.size(); ++index) {
        BlockHeader header = kReading;
        header.cliente = names[index];
        header.cantiere = names[names.size() - 1 - index];
        header.tubo = names[index].substr(4);
        PutHeader(static_cast<int>(index) + 1, header);
    }
    Read();
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 30U);
    EXPECT_EQ(rows[1].at("cliente"), "A' and [");
    EXPECT_EQ(rows[5].at("cliente"), "A\0' B\0C "s);
    Read();
    EXPECT_EQ(Rows(), rows);
}

TEST_F(ReadHeadersTest, LeavesRecordThirtyInTheWorkingHeaderAndThePanelAlone)
{
    panel.header[Client].SetText("TYPED");
    state.currentBlock = 4;
    Read();
    EXPECT_EQ(state.blockHeader, DefaultHeader(29));
    EXPECT_EQ(panel.header[Client].Text(), "TYPED");
    EXPECT_EQ(panel.blockNumber.Text(), "01");
    EXPECT_EQ(state.currentBlock, 4);
    EXPECT_EQ(world.passes, 0);
}

TEST_F(ReadHeadersTest, TheHandleIsSpentAtTheEnd)
{
    Read();
    EXPECT_THROW(survey.surveyTable.Eof(), RunTimeFailure);
    EXPECT_THROW(survey.surveyMatch.Eof(), RunTimeFailure);
}

TEST_F(ReadHeadersTest, ANewTubeIsOneWalkThroughTheHandles)
{
    PutHeader(1, kReading);
    Read();
    EXPECT_THAT(
        std::vector(engine.calls.begin(), engine.calls.begin() + 21),
        ElementsAre("OpenTable", "KeepOthersFromWriting",
                    "Filter [cliente] = 'ROSSI   ' and [cantiere] = 'DIGA A  ' and [Tubo] = 'T1  '",
                    "OpenRecordset", "MoveFirst", "AddNew", "SetField cliente", "SetField cantiere",
                    "SetField tubo", "SetField profondità", "SetField passo", "SetField guide",
                    "SetField nord", "SetField nlet", "SetField l0", "SetField nlet", "Update",
                    "Close", "LetOthersWrite", "KeepOthersFromWriting",
                    "Filter [cliente] = 'CLIENT 2' and [cantiere] = 'SITE0000' and [Tubo] = "
                    "'T   '"));
    EXPECT_EQ(engine.calls.back(), "Close");
}

TEST_F(ReadHeadersTest, AHeaderWithoutAReadingDropsItsEditOfAKnownTube)
{
    Read();
    engine.calls.clear();
    Read();
    EXPECT_THAT(engine.calls, Contains("Edit").Times(30));
    EXPECT_THAT(engine.calls, Not(Contains("Update")));
}

TEST_F(ReadHeadersTest, TheGridIsShownWhenTheTableIsClosed)
{
    std::string last;
    Click([&] { ReadHeaders(survey, state, boxes, [&] { last = engine.calls.back(); }); });
    EXPECT_EQ(last, "Close");
    EXPECT_THROW(survey.surveyTable.Eof(), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
