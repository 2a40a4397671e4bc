#include "survey/model/depths.h"
#include "survey/model/survey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvex::survey
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST(ExpectedDepths, AreThoseThatADownloadGives)
{
    EXPECT_THAT(ExpectedDepths(15, 5), ElementsAre(5, 10, 15));
    EXPECT_THAT(ExpectedDepths(0, 5), IsEmpty());
    EXPECT_THAT(ExpectedDepths(4, 5), IsEmpty());
    EXPECT_EQ(ExpectedDepths(103, 5).front(), 8);
    EXPECT_EQ(ExpectedDepths(103, 10).front(), 3);
    EXPECT_THAT(ExpectedDepths(103, 10), SizeIs(11));
}

TEST(ExpectedDepths, EndWithTheUnitsMemory)
{
    EXPECT_THAT(ExpectedDepths(1500, 5), SizeIs(240));
    EXPECT_EQ(ExpectedDepths(1500, 5).front(), 305);
}

TEST(Metres, HaveOneDecimal)
{
    EXPECT_EQ(Metres(125), "12.5");
    EXPECT_EQ(Metres(0), "0.0");
    EXPECT_EQ(Metres(-5), "-0.5");
}

TEST(StepOf, ASurveyWithoutHeadIsTheDistanceOfMostRows)
{
    Survey survey;
    EXPECT_EQ(StepOf(survey), 5);
    for (const int depth : {10, 20, 40, 50, 60})
        survey.rows.push_back({depth, {}, 1});
    EXPECT_EQ(StepOf(survey), 10);
    EXPECT_EQ(DepthOf(survey), 60);
}

TEST(StepOf, AnyDigitButZeroIsAMetre)
{
    Survey survey;
    survey.head = Head{};
    survey.head->step = "0";
    EXPECT_EQ(StepOf(survey), 5);
    survey.head->step = "1";
    EXPECT_EQ(StepOf(survey), 10);
    survey.head->step = "7";
    EXPECT_EQ(StepOf(survey), 10);
}

TEST(DepthOf, IsThatOfTheHeadWhereItIsANumber)
{
    Survey survey;
    survey.rows.push_back({95, {}, 1});
    survey.head = Head{};
    survey.head->depth = "010.0";
    EXPECT_EQ(DepthOf(survey), 100);
    survey.head->depth = "0x0.0";
    EXPECT_EQ(DepthOf(survey), 95);
}

} // namespace
} // namespace tarvex::survey
