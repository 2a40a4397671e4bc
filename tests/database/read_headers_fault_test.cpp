#include "database/read_headers_test.h"

namespace tarvex::tests
{
namespace
{

using ::testing::ElementsAre;

TEST_F(ReadHeadersTest, WithoutADatabaseOnlyTheGridOpens)
{
    PutHeader(1, DamHeader("30", "160926  ", "093015  "));
    engine.fails = [](int, const std::string& call) { return call == "OpenTable"; };
    Read();
    EXPECT_THAT(engine.calls, ElementsAre("OpenTable"));
    EXPECT_TRUE(Rows().empty());
    EXPECT_EQ(state.blockHeader, DefaultHeader(29));
    EXPECT_EQ(gridsShown, 1);
    EXPECT_EQ(finishedHandlers, 1);
}

TEST_F(ReadHeadersTest, WithoutAHeaderFileTheWorkingHeaderIsFoldedThirtyTimes)
{
    state.headerFilePath = folder.Path();
    state.blockHeader = kReading;
    Read();
    EXPECT_THAT(Rows(), ElementsAre(With(TubeRow(kReading), {{"l0", kFiled}})));
    EXPECT_EQ(state.blockHeader, kReading);
}

TEST_F(ReadHeadersTest, AFailureInAnyStepOfTheLookUpMakesANewTube)
{
    PutHeader(1, kReading);
    AddRow(TubeRow(kReading));
    for (const auto* const step : {"Filter", "MoveFirst"}) {
        const auto rowsBefore = Rows().size();
        bool failed = false;
        engine.fails = [&](int, const std::string& call) {
            return !failed && (failed = call.starts_with(step));
        };
        Read();
        EXPECT_TRUE(failed);
        EXPECT_GT(Rows().size(), rowsBefore) << step;
    }
}

TEST_F(ReadHeadersTest, AMatchThatDoesNotOpenCostsThatHeaderOnly)
{
    PutHeader(2, kReading);
    int opened = 0;
    engine.fails = [&](int, const std::string& call) {
        return call == "OpenRecordset" && ++opened == 2;
    };
    Read();
    EXPECT_EQ(Rows().size(), 29U);
    EXPECT_EQ(RowAt(1), TubeRow(DefaultHeader(2)));
}

TEST_F(ReadHeadersTest, AFailureAfterTheLookUpMakesNoNewTube)
{
    PutHeader(1, kReading);
    AddRow(TubeRow(kReading));
    bool failed = false;
    engine.fails = [&](int, const std::string& call) {
        return !failed && (failed = call == "SetField nord");
    };
    Read();
    EXPECT_TRUE(failed);
    EXPECT_EQ(Rows().size(), 30U);
    EXPECT_EQ(RowAt(0), With(TubeRow(kReading), {{"l0", kFiled}}));
}

TEST_F(ReadHeadersTest, AComparisonThatFailsCountsAsAnotherReading)
{
    bool failed = false;
    engine.fails = [&](int, const std::string& call) {
        return !failed && (failed = call == "Fields l0");
    };
    const auto before = With(TubeRow(kReading), {{"l0", kFiled}});
    EXPECT_EQ(FoldInto(before, DamHeader("01", "160926  ", "093015  ")),
              With(before, {{"l1", kFiled}, {"nlet", 1.0}}));
}

TEST_F(ReadHeadersTest, ALimitTestThatFailsCountsAsPassed)
{
    bool failed = false;
    engine.fails = [&](int, const std::string& call) {
        return !failed && (failed = call == "Fields nlet");
    };
    boxes.Expect(kLimit);
    const auto before = With(TubeRow(kReading), {{"l24", kEarlier}});
    EXPECT_EQ(FoldInto(before, kReading), With(before, {{"l25", kFiled}, {"nlet", 25.0}}));
}

/// Boxes that may come or not.
class AnyLimitBoxes : public MessageBoxes
{
public:
    void Critical(std::string_view text, std::string_view) override { EXPECT_EQ(text, kLimit); }
    bool AskOkCancel(std::string_view) override { return false; }
};

TEST_F(ReadHeadersTest, AnyStepMayFailAndTheWalkReachesItsEnd)
{
    PutHeader(1, kReading);
    PutHeader(2, DamHeader("01", "170926  ", "101112  "));
    Read();
    AnyLimitBoxes anyBoxes;
    constexpr int kStepsOfTheFirstTwoRecords = 60;
    for (int failing = 1; failing <= kStepsOfTheFirstTwoRecords; ++failing) {
        engine.calls.clear();
        engine.fails = [&](int step, const std::string&) { return step == failing; };
        state.blockHeader = kReading;

        Click([&] { ReadHeaders(survey, state, anyBoxes, [&] { ++gridsShown; }); });

        EXPECT_EQ(gridsShown, 1 + failing);
        EXPECT_EQ(finishedHandlers, 1 + failing);
        EXPECT_EQ(state.blockHeader, DefaultHeader(29));
        EXPECT_GE(static_cast<int>(engine.calls.size()), failing);
    }
}

TEST_F(ReadHeadersTest, WhatShowsTheGridMayFail)
{
    Click([&] { ReadHeaders(survey, state, boxes, [] { throw RunTimeFailure("no grid"); }); });
    EXPECT_EQ(finishedHandlers, 1);
    EXPECT_EQ(Rows().size(), 30U);
}

} // namespace
} // namespace tarvex::tests
