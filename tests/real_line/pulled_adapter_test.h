#pragma once

#include "real_line/ftdi_adapter.h"
#include "real_line/open_files.h"
#include "real_line/real_line_test.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// Where in a command the adapter is pulled, and what the operator then has before him.
struct Phase {
    const char* name;
    unit::Moment moment;
    int number;
    std::size_t answered; ///< characters of the answer that still came
};

inline void PrintTo(const Phase& phase, std::ostream* out)
{
    *out << phase.name;
}

inline const QString kNotConnected = QStringLiteral("Attention: TAR--VEX not connected");

/// The program at an adapter that goes away, and comes back.
class RealPulledAdapterTest : public RealLineTest
{
protected:
    RealPulledAdapterTest()
    {
        StartOn(adapter.Device());
        ExpectBlockRead(); // what the program keeps open from its first command on is open now
        openFiles = OpenFiles();
    }

    void PullAt(const Phase& phase)
    {
        adapter.farEnd.At(phase.moment, phase.number, [this, phase](std::string& answer) {
            adapter.Say(answer.substr(0, phase.answered));
            adapter.AwaitTaken();
            adapter.Pull();
            answer.clear();
            pulled = true;
        });
    }

    bool IsLetGo() const { return pulled && !HasPortOpen(); }

    /// Nothing of the pulled adapter is kept, so that it comes back under its number and works.
    void ExpectAsBefore()
    {
        EXPECT_TRUE(pulled);
        EXPECT_FALSE(HasPortOpen());
        EXPECT_THAT(OpenFiles(), ::testing::IsSubsetOf(openFiles));
        adapter.Plug();
        EXPECT_EQ(adapter.Device(), "/dev/ttyUSB0");
        AtPanel().ShowTab(1);
        boxes.texts.clear();
        ExpectBlockRead();
        EXPECT_TRUE(boxes.texts.isEmpty());
    }

    FtdiAdapter adapter;
    std::vector<std::string> openFiles;
    std::atomic<bool> pulled = false;
};

/// What the test of a phase is called.
template <class AnyPhase>
std::string PhaseName(const ::testing::TestParamInfo<AnyPhase>& phase)
{
    return phase.param.name;
}

} // namespace tarvex::tests
