#include "survey/checks/check.h"

#include "survey/checks/verdict_text.h"
#include "survey/downloads.h"
#include "survey/files/load.h"
#include "survey/model/depths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tarvex::survey
{
namespace
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

Survey Downloaded(const std::string& fill, const std::string& fault = "")
{
    const tests::TemporaryFolder folder;
    return Load(tests::Download(folder.Path(), fill, fault));
}

std::vector<std::string> ChecksOf(const Verdict& verdict)
{
    std::set<std::string> names;
    for (const auto& finding : verdict.findings)
        names.insert(finding.check);
    return {names.begin(), names.end()};
}

const Finding& FindingOf(const Verdict& verdict, const std::string& check)
{
    static const Finding none;
    for (const auto& finding : verdict.findings)
        if (finding.check == check) return finding;
    ADD_FAILURE() << "no finding of " << check << ": " << TextOf(verdict);
    return none;
}

TEST(Check, CallsSurveysGoodThatAre)
{
    for (int seed = 1; seed <= 40; ++seed)
        for (const auto* tube : {"depth=30", "depth=40,guides=4,step=1", "depth=100",
                                 "depth=10.3,step=1", "depth=10.3,guides=4", "depth=0.5"}) {
            const auto fill = "1:seed=" + std::to_string(seed) + "," + tube;
            const auto verdict = Check(Downloaded(fill));
            EXPECT_EQ(verdict.Line(), "good") << fill << "\n" << TextOf(verdict);
        }
}

TEST(Check, SaysThatTheUnitHoldsNoMoreDepths)
{
    const auto verdict = Check(Downloaded("1:depth=150"));
    EXPECT_TRUE(verdict.Good());
    EXPECT_THAT(verdict.notes, Contains(HasSubstr("nothing is read above 30.5 m")));
    const auto hint = Contains(HasSubstr("nothing is read above"));
    EXPECT_THAT(Check(Downloaded("1:depth=120.5")).notes, hint) << "0.5 m alone";
    EXPECT_THAT(Check(Downloaded("1:depth=120")).notes, Not(hint));
    EXPECT_TRUE(IsCutAbove(ExpectedDepths(2405, 10), 10)) << "0.5 m alone";
    EXPECT_FALSE(IsCutAbove(ExpectedDepths(2400, 10), 10));
}

TEST(Check, FindsAFrozenGuide)
{
    const auto verdict = Check(Downloaded("3:depth=20,frozen=12"));
    EXPECT_THAT(FindingOf(verdict, "frozen").depths, ElementsAre(110, 115, 120));
    EXPECT_EQ(FindingOf(verdict, "frozen").text, "A and B of guide 1 are the same over 3 depths");
    EXPECT_THAT(verdict.Line(), HasSubstr("read again at 11.0 to 12.0 m (A and B)"));
}

TEST(Check, FindsOneFrozenChannel)
{
    auto survey = Downloaded("3:depth=20");
    for (std::size_t i = 10; i < 16; ++i)
        survey.rows[i].readings[2] = Reading{77, false};
    const auto verdict = Check(survey);
    EXPECT_EQ(FindingOf(verdict, "frozen").text, "A3 is the same over 6 depths");
    EXPECT_EQ(FindingOf(verdict, "frozen").channels, "A");
}

TEST(Check, TakesFiveEqualReadingsOfOneChannelForChance)
{
    auto survey = Downloaded("3:depth=20");
    for (std::size_t i = 10; i < 15; ++i)
        survey.rows[i].readings[2] = Reading{77, false};
    EXPECT_THAT(ChecksOf(Check(survey)), Not(Contains("frozen")));
}

TEST(Check, DoesNotTakeAGapForNeighbours)
{
    auto survey = Downloaded("3:depth=20");
    for (const std::size_t i : {10U, 11U, 13U})
        survey.rows[i].readings = survey.rows[10].readings;
    survey.rows.erase(survey.rows.begin() + 12);
    EXPECT_THAT(ChecksOf(Check(survey)), Not(Contains("frozen")));
}

TEST(Check, FindsASpikeInItsSumAndItsHalfDifference)
{
    const auto verdict = Check(Downloaded("4:depth=20,spike=12.5"));
    EXPECT_EQ(verdict.Line(), "read again at 12.5 m (A)");
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("spike", "sums"));
}

TEST(Check, FindsGuidesExchangedAtOneDepthThoughTheSumsAreGood)
{
    const auto verdict = Check(Downloaded("5:depth=20,swapped=7"));
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("spike"));
    EXPECT_THAT(verdict.Line(), HasSubstr("read again at 7.0 m"));
}

TEST(Check, FindsADepthAtWhichNothingWasStored)
{
    const auto verdict = Check(Downloaded("6:depth=20,unread=3.5"));
    EXPECT_EQ(verdict.Line(), "read again at 3.5 m (A and B)");
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("unread"));
}

TEST(Check, FindsAPassWithTheProbeNotTurned)
{
    const auto verdict = Check(Downloaded("7:depth=20,unturned=1"));
    EXPECT_EQ(verdict.Line(), "read all depths again (A and B)");
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("pass"));
    EXPECT_THAT(FindingOf(verdict, "pass").text, HasSubstr("A3 reads like A1"));
}

TEST(Check, FindsAProbeAQuarterTurnOff)
{
    auto survey = Downloaded("7:depth=20");
    for (auto& row : survey.rows)
        std::swap(row.readings[2], row.readings[3]);
    EXPECT_THAT(FindingOf(Check(survey), "pass").text, HasSubstr("A3 reads opposite to B1"));
}

TEST(Check, FindsAPassThatBeganAStepOff)
{
    auto survey = Downloaded("7:depth=40,step=1");
    // A tube that leans much from depth to depth, so that the shift shows.
    for (std::size_t i = 0; i < survey.rows.size(); ++i) {
        const auto lean = static_cast<int>((i * i * 37) % 900);
        const auto above = static_cast<int>(i == 0 ? 0 : ((i - 1) * (i - 1) * 37) % 900);
        survey.rows[i].readings[0] = Reading{lean + 12, false};
        survey.rows[i].readings[2] = Reading{-above + 12, false};
    }
    EXPECT_THAT(FindingOf(Check(survey), "pass").text, HasSubstr("one pass began a step off"));
}

TEST(Check, FindsADriftOfTheZero)
{
    const auto verdict = Check(Downloaded("8:depth=20,drift=60"));
    EXPECT_EQ(verdict.Line(), "read all depths again (A and B)");
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("drift"));
}

TEST(Check, FindsSumsThatScatter)
{
    auto survey = Downloaded("8:depth=20");
    for (std::size_t i = 0; i < survey.rows.size(); ++i)
        survey.rows[i].readings[0]->counts += (static_cast<int>(i * 7 % 5) - 2) * 12;
    EXPECT_THAT(FindingOf(Check(survey), "sums").text, HasSubstr("scatter by"));
}

TEST(Check, SendsBackToTheUnitForADepthThatTheDownloadSkipped)
{
    const auto verdict = Check(Downloaded("9:depth=20", "wrong@wake15"));
    EXPECT_EQ(verdict.Line(), "download again for 18.0 m (A and B)");
}

TEST(Check, SendsBackToTheUnitForTheRestOfABrokenDownload)
{
    const tests::TemporaryFolder folder;
    tests::Download(folder.Path(), "1:depth=20", "silent@wake16+");
    const auto verdict = Check(Load(folder / "datiram.dat"));
    EXPECT_EQ(verdict.Line(), "download again for 0.5 to 17.5 m (A and B)");
    EXPECT_THAT(FindingOf(verdict, "depths").text, HasSubstr("broke off: 35 depths"));
}

TEST(Check, FindsReadingsAtTheEndOfTheScale)
{
    auto survey = Downloaded("1:depth=20");
    survey.rows[4].readings[3]->counts = -32767;
    EXPECT_THAT(FindingOf(Check(survey), "scale").depths, ElementsAre(25));
    EXPECT_EQ(FindingOf(Check(survey), "scale").channels, "B");
    Limits limits;
    limits.endOfScale = 40000;
    EXPECT_THAT(ChecksOf(Check(survey, limits)), Not(Contains("scale")));
}

TEST(Check, FindsAReadingThatIsNone)
{
    auto survey = Downloaded("1:depth=20");
    survey.rows[4].readings[3].reset();
    const auto verdict = Check(survey);
    EXPECT_EQ(verdict.Line(), "download again for 2.5 m (B)");
}

TEST(Check, FindsDepthsThatAreNoSteps)
{
    auto survey = Downloaded("1:depth=20");
    survey.rows[4].depth = 27;
    const auto verdict = Check(survey);
    EXPECT_EQ(verdict.Line(), "download again for 2.5 m (A and B); look at the files: they are not "
                              "as they were written");
}

TEST(Check, CountsDamagedFilesAgainstTheSurveyButNotHarmlessChanges)
{
    auto survey = Downloaded("1:depth=20");
    survey.anomalies.push_back({"x-num.dat", 2, 113, "blanks", true});
    EXPECT_TRUE(Check(survey).Good());
    EXPECT_THAT(Check(survey).notes, SizeIs(1));
    survey.anomalies.push_back({"x-num.dat", 3, 226, "no row", false});
    EXPECT_EQ(FindingOf(Check(survey), "files").text, "x-num.dat, record 3: no row");
}

TEST(Check, NamesAFewRecordsAndHowManyMoreThereAre)
{
    auto survey = Downloaded("1:depth=20");
    for (std::size_t record = 2; record < 40; ++record)
        for (const bool harmless : {true, false})
            survey.anomalies.push_back({"x-num.dat", record, record * 113, "no row", harmless});
    const auto verdict = Check(survey);
    ASSERT_EQ(verdict.findings.size(), 5U);
    EXPECT_EQ(verdict.findings.back().text, "and 34 more that \"show\" lists");
    EXPECT_EQ(verdict.notes.back(), "and 34 more that \"show\" lists");
}

TEST(Check, PutsEqualFindingsAtSeveralDepthsTogether)
{
    auto spiked = Downloaded("1:depth=20");
    for (const std::size_t row : {11U, 24U})
        spiked.rows[row].readings[0]->counts += 300;
    const auto verdict = Check(spiked);
    EXPECT_THAT(FindingOf(verdict, "spike").depths, ElementsAre(60, 125));
    EXPECT_THAT(FindingOf(verdict, "spike").text, HasSubstr(" is up to 149.50 counts"));
    auto survey = Downloaded("1:depth=20");
    for (const std::size_t first : {5U, 20U})
        for (std::size_t i = first; i < first + 3; ++i)
            survey.rows[i].readings = survey.rows[first].readings;
    EXPECT_THAT(FindingOf(Check(survey), "frozen").depths, ElementsAre(30, 35, 40, 105, 110, 115));
}

TEST(Check, FindsPairsOfGuidesThatDisagreeAtADepth)
{
    auto survey = Downloaded("2:depth=20,guides=4");
    // Both readings of a pair, so that their sum says nothing.
    survey.rows[20].readings[4]->counts += 90;
    survey.rows[20].readings[6]->counts -= 90;
    const auto verdict = Check(survey);
    EXPECT_THAT(ChecksOf(verdict), ElementsAre("pairs"));
    EXPECT_THAT(FindingOf(verdict, "pairs").depths, ElementsAre(105));
}

TEST(Check, FindsPairsOfGuidesThatDoNotBelongTogether)
{
    auto survey = Downloaded("2:depth=20,guides=4,seed=3");
    const auto other = Downloaded("2:depth=20,guides=4,seed=4");
    for (std::size_t i = 0; i < survey.rows.size(); ++i)
        for (std::size_t column = 4; column < 8; ++column)
            survey.rows[i].readings[column] = other.rows[i].readings[column];
    EXPECT_THAT(FindingOf(Check(survey), "pairs").text, HasSubstr("do not follow each other"));
}

TEST(Check, TakesThePairsWithEitherSign)
{
    auto survey = Downloaded("2:depth=20,guides=4");
    EXPECT_THAT(Check(survey).notes,
                Contains(HasSubstr("(A2-A4)/2 and (B1-B3)/2 have the same signs")));
    for (auto& row : survey.rows) {
        std::swap(row.readings[4], row.readings[6]);
        std::swap(row.readings[5], row.readings[7]);
    }
    EXPECT_TRUE(Check(survey).Good());
    EXPECT_THAT(Check(survey).notes,
                Contains(HasSubstr("(A2-A4)/2 and (B1-B3)/2 have opposite signs")));
}

TEST(Check, OfASurveyWithoutDepthsIsNotGood)
{
    const auto verdict = Check(Downloaded("1:depth=0"));
    EXPECT_FALSE(verdict.Good());
    EXPECT_THAT(verdict.findings, SizeIs(1));
}

TEST(Check, OfAHeadReportAloneIsNotGood)
{
    const tests::TemporaryFolder folder;
    const auto head = tests::Download(folder.Path(), "1:depth=20");
    std::filesystem::remove(tests::DataReportOf(head));
    EXPECT_FALSE(Check(Load(head)).Good());
}

TEST(Check, SaysNothingOfPairsThatHaveNoReadings)
{
    auto survey = Downloaded("2:depth=20,guides=4");
    for (auto& row : survey.rows)
        for (const auto column : {Column::A2, Column::B2, Column::A4, Column::B4})
            row.readings[static_cast<std::size_t>(column)].reset();
    const auto verdict = Check(survey);
    EXPECT_EQ(ChecksOf(verdict), std::vector<std::string>{"readings"});
    EXPECT_THAT(verdict.notes, Not(Contains(HasSubstr("signs"))));
}

TEST(Check, NamesADepthOfTheSurveyAlsoWhereNoSumDeparts)
{
    auto survey = Downloaded("1:depth=20");
    survey.rows = {survey.rows.back()};
    EXPECT_THAT(TextOf(Check(survey)), HasSubstr("largest departure 0.0 at 20.0 m"));
}

TEST(DepthList, PutsRunsTogether)
{
    EXPECT_EQ(DepthList({5, 20, 25, 30, 45, 50}, 5), "0.5, 2.0 to 3.0, 4.5, 5.0");
    EXPECT_EQ(DepthList({}, 5), "");
}

TEST(DepthList, EndsAfterTwelvePlaces)
{
    std::vector<int> depths;
    for (int depth = 10; depth <= 300; depth += 10)
        depths.push_back(depth);
    EXPECT_THAT(DepthList(depths, 5), ::testing::EndsWith("12.0 and 18 more places to 30.0"));
}

TEST(Statistics, TakeTheMiddleOfAnEvenNumber)
{
    EXPECT_EQ(Median({4, 1, 3, 2}), 2.5);
    EXPECT_EQ(Median({}), 0);
    EXPECT_EQ(SummaryOf({5}).deviation, 0);
    EXPECT_EQ(SummaryOf({1, 2, 3, 4, 100}).mad, 1);
}

} // namespace
} // namespace tarvex::survey
