#include "real_line/await.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"
#include "unit/program/descriptor.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace tarvex::tests
{
namespace
{

/// A program that has the port open without a word, so that the driver keeps what comes.
class Listener
{
public:
    explicit Listener(const std::filesystem::path& device)
        : port_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
    {
        termios settings{};
        EXPECT_EQ(::tcgetattr(port_.Number(), &settings), 0);
        ::cfmakeraw(&settings);
        EXPECT_EQ(::tcsetattr(port_.Number(), TCSANOW, &settings), 0);
    }

    /// Returns once so many bytes wait in the driver.
    void AwaitBytes(int expected) const
    {
        const auto wait = [&] {
            int count = 0;
            return ::ioctl(port_.Number(), FIONREAD, &count) == 0 && count == expected;
        };
        Await(wait, "the bytes do not come");
    }

private:
    unit::Descriptor port_;
};

class RealNoiseTest : public BothDrivers
{
protected:
    void SetUp() override { StartOn(line->Device()); }

    void ExpectBlockReadInSpite()
    {
        ExpectBlockRead();
        EXPECT_TRUE(boxes.texts.isEmpty());
    }
};

TEST_P(RealNoiseTest, BytesThatWaitAtTheOpeningAreNoAnswer)
{
    const Listener listener(line->Device());
    line->Say("!}garbage!");
    listener.AwaitBytes(10);

    ExpectBlockReadInSpite();
}

TEST_P(RealNoiseTest, ABreakThatWaitsAtTheOpeningIsNoAnswer)
{
    const Listener listener(line->Device());
    line->Break();
    listener.AwaitBytes(1);

    ExpectBlockReadInSpite();
}

TEST_P(RealNoiseTest, WhatCameWhileThePortWasClosedIsNoAnswer)
{
    line->Say("!}garbage!");
    line->Break();

    ExpectBlockReadInSpite();
}

TEST_P(RealNoiseTest, ABreakInsideACommandLeavesTheNextOneWhole)
{
    line->farEnd.At(unit::Moment::PageRead, 3, [this](std::string&) { line->Break(); });

    AtPanel().Click("Command3");

    EXPECT_TRUE(boxes.texts.isEmpty());
    EXPECT_EQ(AtPanel().Text("Text4"), "FRANA 02");
    EXPECT_FALSE(HasPortOpen());
    ExpectBlockReadInSpite();
}

INSTANTIATE_TEST_SUITE_P(, RealNoiseTest, ::testing::ValuesIn(Drivers()), DriverName);

} // namespace
} // namespace tarvex::tests
