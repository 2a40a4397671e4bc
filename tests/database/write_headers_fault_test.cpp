#include "database/write_headers_test.h"

#include <functional>

namespace tarvex::tests
{
namespace
{

using ::testing::Contains;
using ::testing::ElementsAre;

TEST_F(WriteHeadersTest, WithoutADatabaseTheDepthBoxComesOnce)
{
    AddRow(DamRow("5"));
    engine.fails = [](int, const std::string& call) { return call == "OpenTable"; };
    boxes.Expect(kBadDepth, [&] { EXPECT_EQ(state.blockHeader, working); });
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
    state.headerFilePath = folder.Path();
    Write();
    EXPECT_THAT(Marks(), ElementsAre(""));
    EXPECT_EQ(panel.header[Client].Text(), "ROSSI   "); // what the working header holds is shown
    EXPECT_EQ(finishedHandlers, 1);
}

/// The handle of the table is one for both commands: an opening that fails leaves none, and not the
/// one that Read Headers walks.
TEST_F(WriteHeadersTest, UnderTheBoxOfReadHeadersAFailingOpeningTouchesNoRow)
{
    AddRow(DamRow("5"));
    PutHeader(1, DamHeader("30", "170926  ", "101112  "));
    boxes.Expect("ATTENTION: Already there were executed 25 readings ", [&] {
        engine.fails = [](int, const std::string& call) { return call == "OpenTable"; };
        Write();
        EXPECT_EQ(finishedHandlers, 1);
        EXPECT_THAT(Marks(), ElementsAre("5"));
    });
    boxes.Expect(kBadDepth);
    Read();
    EXPECT_THAT(WrittenRecords(), ElementsAre(1));
    EXPECT_THAT(Marks(), ElementsAre("5"));
    EXPECT_EQ(gridsShown, 1);
    EXPECT_EQ(finishedHandlers, 2);
}

TEST_F(WriteHeadersTest, TheHandleIsSpentAtTheEnd)
{
    AddRow(DamRow("5"));
    Write();
    EXPECT_THROW(survey.surveyTable.Eof(), RunTimeFailure);
    Write();
    EXPECT_THAT(engine.calls, Contains("OpenTable").Times(2));
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

} // namespace
} // namespace tarvex::tests
