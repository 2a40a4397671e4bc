#include "real_line/ftdi_adapter.h"
#include "real_line/real_line_test.h"
#include "support/ordinary_user.h"

#include <gmock/gmock.h>

#include <fstream>
#include <ostream>

namespace tarvex::tests
{
namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// What the driver says of its timer and what the chip has, in milliseconds.
struct Timer {
    int driver = 0;
    int chip = 0;

    bool operator==(const Timer&) const = default;
};

void PrintTo(const Timer& timer, std::ostream* out)
{
    *out << "driver " << timer.driver << " ms, chip " << timer.chip << " ms";
}

class RealLowLatencyTest : public RealLineTest
{
protected:
    RealLowLatencyTest()
    {
        adapter.farEnd.At(unit::Moment::Woken, 1, [this](std::string&) { open = TimerNow(); });
    }

    fs::path Attribute() const
    {
        return fs::path("/sys/class/tty") / adapter.Device().filename() / "device/latency_timer";
    }

    Timer TimerNow() const
    {
        Timer timer;
        std::ifstream(Attribute()) >> timer.driver;
        timer.chip = adapter.LatencyTimer();
        return timer;
    }

    FtdiAdapter adapter;
    Timer open; ///< while the manager had the port open
};

TEST_F(RealLowLatencyTest, TheTimerIsOneMillisecondWhileThePortIsOpenAndThenWhatItWas)
{
    StartOn(adapter.Device());
    ASSERT_EQ(TimerNow(), (Timer{16, 16}));

    ExpectBlockRead();

    EXPECT_EQ(open, (Timer{1, 1}));
    EXPECT_EQ(TimerNow(), (Timer{16, 16}));
    EXPECT_THAT(TipOf(1), Not(HasSubstr("timer")));
}

TEST_F(RealLowLatencyTest, ATimerThatSomebodyHasSetComesBack)
{
    std::ofstream(Attribute()) << 8 << std::endl;
    StartOn(adapter.Device());

    ExpectBlockRead();

    EXPECT_EQ(open, (Timer{1, 1}));
    EXPECT_EQ(TimerNow(), (Timer{8, 8}));
}

TEST_F(RealLowLatencyTest, AnOrdinaryUserGetsItToo)
{
    fs::permissions(adapter.Device(), fs::perms::all);
    fs::permissions(folder.Path(), fs::perms::all);
    StartOn(adapter.Device());
    {
        const OrdinaryUser user;
        ExpectBlockRead();
    }

    EXPECT_EQ(open, (Timer{1, 1}));
    EXPECT_EQ(TimerNow(), (Timer{16, 16}));
}

TEST_F(RealLowLatencyTest, AnAdapterThatWasPulledAndPluggedInAgainGetsItAnew)
{
    StartOn(adapter.Device());
    ExpectBlockRead();
    adapter.Pull();
    adapter.Plug();
    ASSERT_EQ(TimerNow(), (Timer{16, 16}));
    adapter.farEnd.At(unit::Moment::Woken, 1, [this](std::string&) { open = TimerNow(); });
    open = {};

    ExpectBlockRead();

    EXPECT_EQ(open, (Timer{1, 1}));
    EXPECT_EQ(TimerNow(), (Timer{16, 16}));
}

} // namespace
} // namespace tarvex::tests
