#include "core/failure.h"
#include "core/program_end.h"
#include "platform/device_lock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_port_names.h"
#include "platform/qt_serial_port.h"
#include "platform/windows_system.h"
#include "windows/wine.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace tarvex::tests
{
namespace
{

using ::testing::HasSubstr;

// Where scripts/try-windows has put simulated units.
constexpr int kUnit = 1;
constexpr int kUnitBeyondNine = 12;
constexpr int kUnitThatHangsUp = 13;
constexpr int kNothing = 7;

/// How long this program has kept a processor busy, in milliseconds.
qint64 ProcessorTime()
{
    FILETIME ignored{}, kernel{}, user{};
    ::GetProcessTimes(::GetCurrentProcess(), &ignored, &ignored, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return qint64{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    };
    return (ticks(kernel) + ticks(user)) / 10'000;
}

class WindowsSerialPort : public ::testing::Test
{
protected:
    void Open(int number)
    {
        port.SetCommPort(number);
        port.Open();
    }

    /// Everything received until it is at least that many bytes, or five seconds have passed.
    std::string InputOf(int count)
    {
        QTimer watch;
        watch.start(100);
        QElapsedTimer time;
        time.start();
        while (port.InBufferCount() < count && time.elapsed() < 5000)
            pump.WaitForEvents();
        return port.Input();
    }

    void PumpFor(int milliseconds)
    {
        bool over = false;
        QTimer::singleShot(milliseconds, [&] { over = true; });
        while (!over)
            pump.WaitForEvents();
    }

    /// Waits for it; true when only another event, two seconds later, ended the wait.
    bool IsLate(const std::function<bool()>& reached)
    {
        bool late = false;
        QTimer event;
        event.callOnTimeout([&] { late = true; });
        event.start(2'000);
        while (!late && !reached())
            pump.WaitForEvents();
        return late;
    }

    std::string RefusalOf(int number)
    {
        try {
            Open(number);
            return {};
        } catch (const RunTimeFailure& failure) {
            return failure.what();
        }
    }

    ProgramEnd end;
    platform::QtEventPump pump{end};
    platform::PortFinder finder{"."};
    platform::PortSurroundings surroundings;
    platform::QtSerialPort port{finder, surroundings};
    platform::QtPortNames names{finder, surroundings};
};

TEST_F(WindowsSerialPort, GetsTheUnitsAnswer)
{
    Open(kUnit);
    port.Output("}");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(WindowsSerialPort, OpensAPortBeyondNine)
{
    Open(kUnitBeyondNine);
    port.Output("}");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(WindowsSerialPort, OpensAgainAfterAClose)
{
    for (int opening = 0; opening < 3; ++opening) {
        Open(kUnit);
        port.Output("}");
        EXPECT_EQ(InputOf(1), "!") << "opening " << opening;
        port.Close();
    }
}

/// Not only with the tick that comes next.
TEST_F(WindowsSerialPort, EndsAWaitWithTheUnitsAnswer)
{
    constexpr int kAnswers = 5;
    Open(kUnit);
    int late = 0;
    for (int answer = 0; answer < kAnswers; ++answer) {
        port.Output("}");
        late += IsLate([&] { return port.InBufferCount() > 0; });
        EXPECT_EQ(port.Input(), "!");
    }
    EXPECT_LT(late, kAnswers / 2);
}

TEST_F(WindowsSerialPort, EndsAWaitWithATimer)
{
    bool over = false;
    QTimer::singleShot(50, Qt::PreciseTimer, [&] { over = true; });
    EXPECT_FALSE(IsLate([&] { return over; }));
}

TEST_F(WindowsSerialPort, OpensWithEmptyBuffers)
{
    Open(kUnit);
    port.Output("}");
    PumpFor(200);
    port.Close();
    Open(kUnit);
    PumpFor(100);
    EXPECT_EQ(port.InBufferCount(), 0);
}

/// A pseudo terminal has no modem lines: DTR and RTS are seen by no test here.
TEST_F(WindowsSerialPort, SetsTheLine)
{
    Open(kUnit);
    port.Close();
    const platform::SystemHandle handle(
        ::CreateFileW(LR"(\\.\COM1)", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(handle);
    DCB line{};
    line.DCBlength = sizeof line;
    ASSERT_TRUE(::GetCommState(handle.Get(), &line));
    EXPECT_EQ(line.BaudRate, CBR_9600);
    EXPECT_EQ(line.ByteSize, 8);
    EXPECT_EQ(line.Parity, NOPARITY);
    EXPECT_EQ(line.StopBits, TWOSTOPBITS);
    EXPECT_FALSE(line.fOutxCtsFlow || line.fOutxDsrFlow || line.fOutX || line.fInX);
}

TEST_F(WindowsSerialPort, SaysThatThereIsNoSuchPort)
{
    EXPECT_EQ(RefusalOf(kNothing), "No such port: COM7");
    EXPECT_EQ(
        names.Describe(kNothing).substr(0, 83),
        "Com 7: COM7, which is not there. Plug in the adapter, or give its port this number ");
    EXPECT_THAT(names.Describe(kNothing), HasSubstr("not opened "));
    EXPECT_THAT(names.Describe(kNothing), HasSubstr(": no such device"));
}

TEST_F(WindowsSerialPort, TellsWhatIsThere)
{
    EXPECT_EQ(names.Describe(kUnitBeyondNine), "Com 12: COM12");
    Open(kUnitBeyondNine);
    EXPECT_THAT(names.Describe(kUnitBeyondNine), HasSubstr("\nopened "));
}

TEST_F(WindowsSerialPort, IsHeldAgainstOtherPrograms)
{
    SKIP_UNDER_WINE("lets a second program open a port");
    Open(kUnit);
    platform::QtSerialPort other{finder, surroundings};
    other.SetCommPort(kUnit);
    EXPECT_THROW(other.Open(), platform::DeviceHeld);
    EXPECT_THAT(names.Describe(kUnit), HasSubstr("in use by another program"));
}

TEST_F(WindowsSerialPort, StaysOpenAndSilentWhenTheAdapterIsPulled)
{
    Open(kUnitThatHangsUp);
    port.Output("}");
    PumpFor(500);
    const qint64 before = ProcessorTime();
    PumpFor(2000);
    EXPECT_LT(ProcessorTime() - before, 500) << "milliseconds of processor time in two seconds";
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_NO_THROW(port.Output("}"));
    EXPECT_NO_THROW(port.Close());
}

} // namespace
} // namespace tarvex::tests
