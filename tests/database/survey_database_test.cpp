#include "database/open_database.h"
#include "database/survey_test.h"

namespace tarvex::tests
{
namespace
{

TEST_F(SurveyTest, TheWayInStoresThePanelBeforeTheDatabasePanelShows)
{
    state.currentBlock = 3;
    panel.header[Client].SetText("TYPED");
    panel.header[DepthMetres].SetText("12");
    panel.header[DepthTenths].SetText("5");
    panel.calibration[Gain1].SetText("+2.0000");
    BlockHeader stored;
    Click([&] { OpenDatabase(panel, state, [&] { stored = StoredHeader(3); }); });
    EXPECT_EQ(stored.cliente.Text(), "TYPED   ");
    EXPECT_EQ(stored.profondità.Text(), "125 "); // as it is: no check here
    EXPECT_EQ(stored.gain1.Text(), "+2.0000");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(SurveyTest, AStoreThatFailsEndsTheProgramBeforeTheDatabasePanelShows)
{
    state.currentBlock = 0;
    bool shown = false;
    Click([&] { OpenDatabase(panel, state, [&] { shown = true; }); });
    EXPECT_FALSE(shown);
    EXPECT_TRUE(unhandledFailure.has_value());
}

TEST_F(SurveyTest, TheDatabaseLiesInTheCurrentDirectoryOfTheLoad)
{
    LoadDatabaseForm(survey, [&] { return folder / "elsewhere"; });
    EXPECT_EQ(survey.databasePath, folder / "elsewhere" / "tar_vex.mdb");
}

TEST_F(SurveyTest, WithoutACurrentDirectoryThePathStays)
{
    Click([&] {
        LoadDatabaseForm(survey, []() -> std::filesystem::path { throw RunTimeFailure("gone"); });
    });
    EXPECT_EQ(survey.databasePath, folder / "tar_vex.mdb");
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(SurveyTest, EveryCallOnAHandleThatWasNeverSetFails)
{
    SurveyHandle& table = survey.surveyTable;
    EXPECT_THROW(table.Eof(), RunTimeFailure);
    EXPECT_THROW(table.Fields("b"), RunTimeFailure);
    EXPECT_THROW(table.OpenRecordset(), RunTimeFailure);
    EXPECT_THROW(table.SetFilter(""), RunTimeFailure);
    EXPECT_THROW(table.MoveFirst(), RunTimeFailure);
    EXPECT_THROW(table.MoveNext(), RunTimeFailure);
    EXPECT_THROW(table.AddNew(), RunTimeFailure);
    EXPECT_THROW(table.Edit(), RunTimeFailure);
    EXPECT_THROW(table.Update(), RunTimeFailure);
    EXPECT_THROW(table.SetField("b", ""), RunTimeFailure);
    EXPECT_THROW(table.Close(), RunTimeFailure);
}

TEST_F(SurveyTest, ATableThatDoesNotOpenLeavesNoHandleOfTheTimeBefore)
{
    survey.OpenTable();
    EXPECT_TRUE(survey.surveyTable.Eof());
    engine.fails = [](int, const std::string&) { return true; };
    bool failed = false;
    SkipOnError rule(failed);
    survey.OpenTable();
    EXPECT_TRUE(failed);
    EXPECT_THROW(survey.surveyTable.Eof(), RunTimeFailure);
}

TEST_F(SurveyTest, ATestThatFailsCountsAsPassedUnderTheRule)
{
    bool failed = false;
    SkipOnError rule(failed);
    EXPECT_TRUE(Holds([] { return true; }));
    EXPECT_FALSE(Holds([] { return false; }));
    EXPECT_TRUE(Holds([] { return Truth::True; }));
    EXPECT_FALSE(Holds([] { return Truth::False; }));
    EXPECT_FALSE(Holds([] { return Truth::Unknown; }));
    EXPECT_FALSE(failed);
    EXPECT_TRUE(Holds([]() -> bool { throw RunTimeFailure("on purpose"); }));
    EXPECT_TRUE(failed);
}

TEST_F(SurveyTest, ATestThatFailsGoesUpWithoutTheRule)
{
    LetFailuresGoUp rule;
    EXPECT_THROW(Holds([]() -> bool { throw RunTimeFailure("on purpose"); }), RunTimeFailure);
}

} // namespace
} // namespace tarvex::tests
