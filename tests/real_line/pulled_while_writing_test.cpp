#include "real_line/pulled_adapter_test.h"

namespace tarvex::tests
{
namespace
{

using unit::Moment;

/// Set Block writes two frames, each after a wake of its own and before a pause.
struct WritePhase : Phase {
    bool silent; ///< a wake is still to come, which nobody answers
};

class RealPulledWhileWritingTest : public RealPulledAdapterTest,
                                   public ::testing::WithParamInterface<WritePhase>
{
};

TEST_P(RealPulledWhileWritingTest, SetBlockEndsAndLetsThePortGo)
{
    PullAt(GetParam());

    AtPanel().Click("Command6");

    QStringList seen = boxes.texts;
    ASSERT_FALSE(seen.isEmpty());
    seen.removeFirst(); // its question
    EXPECT_EQ(seen, GetParam().silent ? QStringList{kNotConnected} : QStringList{});
    ExpectAsBefore();
}

INSTANTIATE_TEST_SUITE_P(
    , RealPulledWhileWritingTest,
    ::testing::Values(WritePhase{{"AtItsFirstWake", Moment::Woken, 1, 0}, true},
                      WritePhase{{"InThePauseAfterTheHeader", Moment::Written, 1, 0}, true},
                      WritePhase{{"AtItsSecondWake", Moment::Woken, 2, 0}, true},
                      WritePhase{{"InThePauseBeforeTheClosing", Moment::Written, 2, 0}, false}),
    PhaseName<WritePhase>);

} // namespace
} // namespace tarvex::tests
