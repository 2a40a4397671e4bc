#pragma once

#include "program/program_test.h"
#include "real_line/real_line.h"

#include <functional>
#include <memory>
#include <string>

namespace tarvex::tests
{

/// The whole program on the serial ports of a machine that is there for nothing else. A test that
/// waits without end fails within a minute, and the others go on.
class RealLineTest : public ProgramTest
{
protected:
    /// Throws in any other machine, before a port is opened.
    RealLineTest();

    /// Starts the program with a link "com1" to that device.
    void StartOn(const std::filesystem::path& device);

    /// Starts the program without any link, so that the numbers mean the machine's own devices.
    void StartWithoutLinks();

    /// What the option of that port number says when the mouse rests on it.
    std::string TipOf(int number);

    /// Reads block 1, whatever the panel shows, and expects the unit's header there.
    void ExpectBlockRead();

    /// Presses a button whose command waits without end. As soon as `begun` holds inside the wait,
    /// looks for two seconds how much of a processor this thread uses; then has `leave` end the
    /// wait. The share, from 0 to 1.
    double LoadOfWait(const char* button, std::function<bool()> begun, std::function<void()> leave);

private:
    void LimitTheTest();
};

/// What an idle program may use of a processor; a loop that does not sleep uses all of it.
inline constexpr double kIdleLoad = 0.25;

/// A driver, and the line that is under it.
struct Driver {
    const char* name;
    std::unique_ptr<RealLine> (*line)();
};

inline void PrintTo(const Driver& driver, std::ostream* out)
{
    *out << driver.name;
}

/// A test that holds under both drivers; `line` is there from the start.
class BothDrivers : public RealLineTest, public ::testing::WithParamInterface<Driver>
{
protected:
    std::unique_ptr<RealLine> line = GetParam().line();
};

/// The two, and what their tests are called.
std::vector<Driver> Drivers();
std::string DriverName(const ::testing::TestParamInfo<Driver>& driver);

} // namespace tarvex::tests
