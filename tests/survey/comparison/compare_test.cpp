#include "survey/comparison/compare.h"

#include "survey/comparison/compare_text.h"
#include "survey/comparison/probe.h"
#include "survey/downloads.h"
#include "survey/files/load.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::survey
{
namespace
{

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class CompareTest : public ::testing::Test
{
protected:
    Survey Downloaded(const std::string& fill)
    {
        return Load(tests::Download(folder_.Path(), fill));
    }

    tests::TemporaryFolder folder_;
    const Survey base_ = Downloaded("1:depth=20,nlet=00");
    const Survey now_ = Downloaded("1:depth=20,nlet=01,moved=2");
};

TEST_F(CompareTest, RefusesAnotherTube)
{
    for (const auto& [fill, reason] :
         {std::pair{"1:depth=20,client=X", "client"}, std::pair{"1:depth=20,site=X", "site"},
          std::pair{"1:depth=20,tube=X", "tube"}, std::pair{"1:depth=20,guides=4", "guides"},
          std::pair{"1:depth=20,step=1", "step"}}) {
        const auto comparison = Compare(base_, Downloaded(fill), SumFrom::Bottom);
        EXPECT_THAT(comparison.refusal, HasSubstr(reason));
        EXPECT_THAT(comparison.pairs, IsEmpty());
    }
}

TEST_F(CompareTest, TakesAMissingHeadOnTrustAndSaysSo)
{
    auto now = now_;
    now.head.reset();
    EXPECT_THAT(Compare(base_, now, SumFrom::Bottom).notes,
                Contains(HasSubstr("nothing shows that it is the same tube")));
}

TEST_F(CompareTest, AlignsTubesOfDifferentDepthAtTheBottom)
{
    const auto deeper = Downloaded("1:depth=21,nlet=02");
    const auto comparison = Compare(base_, deeper, SumFrom::Bottom);
    EXPECT_EQ(comparison.deeper, 10);
    EXPECT_THAT(comparison.notes, Contains(HasSubstr("aligned at the bottom")));
    EXPECT_THAT(comparison.notes, Contains("the base has no readings for 0.5, 1.0 m"));
    EXPECT_EQ(comparison.pairs[0].differences.front().depth, 15);
    EXPECT_EQ(comparison.pairs[0].differences.back().depth, 210);
}

TEST_F(CompareTest, LeavesOutADepthThatOneOfThemLacks)
{
    auto now = now_;
    now.rows.erase(now.rows.begin() + 10);
    const auto whole = Compare(base_, now_, SumFrom::Bottom).pairs[0];
    const auto gap = Compare(base_, now, SumFrom::Bottom);
    EXPECT_THAT(gap.notes, Contains("only the base has readings for 5.5 m"));
    EXPECT_THAT(gap.pairs[0].differences, SizeIs(39));
    EXPECT_EQ(gap.pairs[0].cumulative.front().value,
              whole.cumulative.front().value - At(whole.differences, 55)->value);
}

TEST_F(CompareTest, EndsBothSumsWithTheSameTotal)
{
    const auto up = Compare(base_, now_, SumFrom::Bottom).pairs[0].cumulative;
    const auto down = Compare(base_, now_, SumFrom::Top).pairs[0].cumulative;
    EXPECT_EQ(up.front().value, down.back().value);
}

TEST_F(CompareTest, RecognisesGuidesTakenTheOtherWayRound)
{
    auto now = now_;
    for (auto& row : now.rows) {
        std::swap(row.readings[0], row.readings[2]);
        std::swap(row.readings[1], row.readings[3]);
    }
    const auto comparison = Compare(base_, now, SumFrom::Bottom);
    EXPECT_TRUE(comparison.Suspicious());
    EXPECT_THAT(comparison.notes, Contains(HasSubstr("the other way round")));
    EXPECT_FALSE(Compare(base_, now_, SumFrom::Bottom).Suspicious());
}

TEST_F(CompareTest, SaysHowTheProbesZeroChanged)
{
    auto now = now_;
    for (auto& row : now.rows)
        for (const std::size_t column : {0U, 2U})
            row.readings[column]->counts += 30;
    EXPECT_NEAR(Compare(base_, now, SumFrom::Bottom).pairs[0].SumsChange(), 60, 2);
    EXPECT_EQ(Compare(base_, now, SumFrom::Bottom).pairs[0].differences,
              Compare(base_, now_, SumFrom::Bottom).pairs[0].differences);
}

TEST_F(CompareTest, GivesMillimetresByTheProbesConstantAndBase)
{
    // 20 counts of 20000 are a sine of 1/1000: half a millimetre in half a metre.
    EXPECT_DOUBLE_EQ(Millimetres(20, {20000, 0.5}), 0.5);
    const auto comparison = Compare(base_, now_, SumFrom::Bottom);
    EXPECT_THAT(TextOf(comparison, Probe{20000, 0.5}), HasSubstr("sum in mm"));
    EXPECT_THAT(TextOf(comparison, std::nullopt), Not(HasSubstr("mm")));
}

} // namespace
} // namespace tarvex::survey
