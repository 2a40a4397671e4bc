#include "core/failure_rule.h"

#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

void Fail()
{
    throw RunTimeFailure("Bad file name");
}

TEST(FailureRule, AStepThatRunsIsReported)
{
    SkipOnError rule;
    bool ran = false;
    EXPECT_TRUE(Attempt([&] { ran = true; }));
    EXPECT_TRUE(ran);
}

TEST(FailureRule, WithoutAnyRuleAFailureGoesUp)
{
    EXPECT_THROW(Attempt(Fail), RunTimeFailure);
}

TEST(FailureRule, SkipOnErrorPassesOverAFailingStep)
{
    SkipOnError rule;
    EXPECT_FALSE(Attempt(Fail));
}

TEST(FailureRule, SkipOnErrorSaysWhenAskedThatAStepFailed)
{
    bool failed = false;
    SkipOnError rule(failed);
    Attempt([] {});
    EXPECT_FALSE(failed);
    Attempt(Fail);
    EXPECT_TRUE(failed);
}

TEST(FailureRule, TheInnermostRuleDecidesAndTheOuterOneReturns)
{
    bool outerFailed = false;
    SkipOnError outer(outerFailed);
    {
        LetFailuresGoUp inner;
        EXPECT_THROW(Attempt(Fail), RunTimeFailure);
        {
            SkipOnError innermost;
            EXPECT_FALSE(Attempt(Fail));
        }
        EXPECT_THROW(Attempt(Fail), RunTimeFailure);
    }
    EXPECT_FALSE(outerFailed);
    EXPECT_FALSE(Attempt(Fail));
    EXPECT_TRUE(outerFailed);
}

TEST(FailureRule, TheOuterRuleReturnsAlsoAfterAFailure)
{
    SkipOnError outer;
    try {
        LetFailuresGoUp inner;
        Attempt(Fail);
    } catch (const RunTimeFailure&) {
    }
    EXPECT_TRUE(FailureScope::Skips());
}

TEST(FailureRule, TheEndOfTheProgramPassesEveryRule)
{
    SkipOnError rule;
    EXPECT_THROW(Attempt([] { throw ProgramEnded(); }), ProgramEnded);
}

TEST(FailureRule, NothingButARunTimeFailureIsSkipped)
{
    SkipOnError rule;
    EXPECT_THROW(Attempt([] { throw std::logic_error("a mistake of ours"); }), std::logic_error);
}

class HandlersTest : public ::testing::Test
{
protected:
    ScriptedBoxes boxes;
    ProgramEnd end;
    Handlers handlers{end, boxes};
};

TEST_F(HandlersTest, RunAHandlerUnderTheRuleThatFailuresGoUp)
{
    SkipOnError outer;
    bool skips = true;
    handlers.Run([&] { skips = FailureScope::Skips(); });
    EXPECT_FALSE(skips);
    EXPECT_TRUE(FailureScope::Skips());
    EXPECT_FALSE(end.Ended());
}

TEST_F(HandlersTest, AFailureThatComesOutIsShownAndEndsTheProgramWithStatusOne)
{
    boxes.Expect("Run-time error: Bad file name", [&] { EXPECT_FALSE(end.Ended()); });
    int ends = 0;
    end.OnEnd([&] { ++ends; });

    handlers.Run(Fail);

    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 1);
    EXPECT_EQ(ends, 1);
}

TEST_F(HandlersTest, AStandardExceptionIsAFailureLikeAnyOtherAlsoUnderARule)
{
    boxes.Expect("Run-time error: too long");
    handlers.Run([] {
        SkipOnError rule;
        throw std::length_error("too long");
    });
    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 1);
}

TEST_F(HandlersTest, NothingRunsOnceTheProgramHasEnded)
{
    end.End(0);
    handlers.Run([] { FAIL() << "a handler ran after the end"; });
}

TEST_F(HandlersTest, TheEndOfTheProgramComesOutOfAHandlerSilently)
{
    handlers.Run([] { throw ProgramEnded(); });
    EXPECT_EQ(boxes.shown, 0);
}

TEST_F(HandlersTest, AFailingNestedHandlerEndsTheProgramAndReturnsToTheOuterOne)
{
    boxes.Expect("Run-time error: Bad file name");
    bool returned = false;
    handlers.Run([&] {
        SkipOnError rule;
        handlers.Run(Fail);
        returned = true;
        EXPECT_TRUE(FailureScope::Skips());
    });
    EXPECT_TRUE(returned);
    EXPECT_TRUE(end.Ended());
}

TEST_F(HandlersTest, TheEndOfTheProgramUnderTheBoxOfAFailureComesOutSilently)
{
    boxes.Expect("Run-time error: Bad file name", [&] {
        end.End(0);
        throw ProgramEnded();
    });
    handlers.Run(Fail);
    EXPECT_TRUE(end.Ended());
    EXPECT_EQ(end.Status(), 0);
}

TEST(ProgramEnd, OnlyTheFirstEndCounts)
{
    ProgramEnd end;
    int ends = 0;
    end.OnEnd([&] { ++ends; });
    end.End(1);
    end.End(0);
    EXPECT_EQ(end.Status(), 1);
    EXPECT_EQ(ends, 1);
}

} // namespace
} // namespace tarvex::tests
