#include "platform/due_input.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <thread>

#include <unistd.h>

namespace tarvex::tests
{
namespace
{

using namespace std::chrono_literals;
using platform::AwaitDue;
using platform::DueInput;
using Clock = DueInput::Clock;

/// What is awaited comes through a pipe.
class DueInputTest : public ::testing::Test
{
protected:
    DueInputTest() { EXPECT_EQ(::pipe(ends_.data()), 0); }
    ~DueInputTest() override
    {
        ::close(ends_[0]);
        if (ends_[1] >= 0) ::close(ends_[1]);
    }

    int Line() const { return ends_[0]; }
    void Send() { EXPECT_EQ(::write(ends_[1], "x", 1), 1); }
    void HangUp()
    {
        ::close(ends_[1]);
        ends_[1] = -1;
    }

    const Clock::time_point now = Clock::now();

private:
    std::array<int, 2> ends_{};
};

TEST_F(DueInputTest, HasAtOnceWhatComesBeforeItIsDue)
{
    Send();
    const auto due = now + 10s;
    EXPECT_TRUE(AwaitDue(Line(), {due, due + 1s}));
    EXPECT_LT(Clock::now(), due);
}

TEST_F(DueInputTest, IsWokenByWhatComesBeforeItIsDue)
{
    std::thread unit([&] {
        std::this_thread::sleep_until(now + 3ms);
        Send();
    });
    const auto due = now + 10s;
    EXPECT_TRUE(AwaitDue(Line(), {due, due + 1s}));
    EXPECT_GE(Clock::now(), now + 3ms);
    EXPECT_LT(Clock::now(), due);
    unit.join();
}

TEST_F(DueInputTest, SleepsThroughThePartsOfAReplyUntilShortlyBeforeTheLastIsDue)
{
    Send();
    const auto due = now + 10ms;
    EXPECT_TRUE(AwaitDue(Line(), {due, due + 1s, true}));
    EXPECT_GE(Clock::now(), due - 60us);
}

TEST_F(DueInputTest, WaitsForWhatComesAfterItIsDue)
{
    const auto due = now + 1ms;
    std::thread unit([&] {
        std::this_thread::sleep_until(due + 3ms);
        Send();
    });
    EXPECT_TRUE(AwaitDue(Line(), {due, due + 10s}));
    EXPECT_GE(Clock::now(), due + 3ms);
    EXPECT_LT(Clock::now(), due + 10s);
    unit.join();
}

TEST_F(DueInputTest, EndsWithNothingWhenItIsLate)
{
    const auto due = now + 1ms;
    EXPECT_FALSE(AwaitDue(Line(), {due, due + 2ms}));
    EXPECT_GE(Clock::now(), due + 2ms);
}

TEST_F(DueInputTest, StillHasWhatIsThereOnceItIsLate)
{
    EXPECT_FALSE(AwaitDue(Line(), {now - 2s, now - 1s}));
    Send();
    EXPECT_TRUE(AwaitDue(Line(), {now - 2s, now - 1s}));
}

TEST_F(DueInputTest, HasNothingFromALineThatIsGone)
{
    HangUp();
    const auto due = now + 1ms;
    EXPECT_FALSE(AwaitDue(Line(), {due, due + 10s}));
    EXPECT_LT(Clock::now(), due + 10s);
}

} // namespace
} // namespace tarvex::tests
