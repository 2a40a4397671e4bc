#include "survey/files/paced_progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tarvex::survey
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

class PacedProgress : public ::testing::Test
{
protected:
    void At(std::chrono::milliseconds time, std::size_t count)
    {
        now_ = start_ + time;
        progress_(count);
    }

    const std::chrono::steady_clock::time_point start_{1h};
    std::chrono::steady_clock::time_point now_ = start_;
    std::vector<std::size_t> counts_;
    const Progress progress_ =
        Paced([this](std::size_t count) { counts_.push_back(count); }, [this] { return now_; });
};

TEST_F(PacedProgress, SaysNothingWithinTheFirstSecond)
{
    At(0ms, 256);
    At(999ms, 512);
    EXPECT_THAT(counts_, IsEmpty());
}

TEST_F(PacedProgress, SaysItOnceASecondFromThenOn)
{
    At(1000ms, 1);
    At(1001ms, 2);
    At(1999ms, 3);
    At(2000ms, 4);
    EXPECT_THAT(counts_, ElementsAre(1, 4));
}

TEST_F(PacedProgress, DoesNotMakeUpForSecondsInWhichNothingWasCounted)
{
    At(5000ms, 1);
    At(5001ms, 2);
    At(5002ms, 3);
    EXPECT_THAT(counts_, ElementsAre(1));
}

} // namespace
} // namespace tarvex::survey
