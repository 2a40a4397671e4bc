#include "platform/port_test.h"

#include <sys/resource.h>
#include <sys/stat.h>

namespace tarvex::tests
{
namespace
{

/// The port is open when the far end goes.
class SerialPortHangUp : public PortTest
{
protected:
    SerialPortHangUp() { port.Open(); }

    void HangUp()
    {
        terminal.HangUp();
        PumpFor(20);
    }
};

double ProcessorSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(SerialPortHangUp, LeavesThePortOpenAndSilent)
{
    HangUp();
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_EQ(port.Input(), "");
    EXPECT_NO_THROW(port.Output("}"));
    EXPECT_EQ(RefusalOf(port), "Port already open");
    EXPECT_THROW(port.SetCommPort(2), RunTimeFailure);
}

TEST_F(SerialPortHangUp, SilencesBytesThatNobodyTook)
{
    terminal.Send("!");
    ASSERT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1; }));
    HangUp();
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_EQ(port.Input(), "");
}

TEST_F(SerialPortHangUp, CostsNoProcessorTime)
{
    HangUp();
    const double before = ProcessorSeconds();
    PumpFor(1000);
    EXPECT_LT(ProcessorSeconds() - before, 0.2);
}

TEST_F(SerialPortHangUp, WakesASleepingWaitOnlyAFewTimes)
{
    HangUp();
    int passes = 0;
    bool over = false;
    QTimer::singleShot(200, [&] { over = true; });
    for (; !over; ++passes)
        pump.WaitForEvents();
    EXPECT_LT(passes, 10);
}

/// How many descriptors of this process are open on the device.
int DescriptorsOn(dev_t device)
{
    int count = 0;
    for (int descriptor = 0; descriptor < 1024; ++descriptor) {
        struct stat status {
        };
        if (::fstat(descriptor, &status) == 0 && status.st_rdev == device) ++count;
    }
    return count;
}

TEST_F(SerialPortHangUp, LetsTheDeviceGoSoThatItsNumberIsFreeForAReturningAdapter)
{
    struct stat line {
    };
    ASSERT_EQ(::fstat(terminal.Slave(), &line), 0);
    ASSERT_EQ(DescriptorsOn(line.st_rdev), 3) << "the port, its lock and the test's own";
    HangUp();
    EXPECT_EQ(DescriptorsOn(line.st_rdev), 1) << "only the test's own";
}

TEST_F(SerialPortHangUp, EndsWithTheClosing)
{
    HangUp();
    port.Close();
    EXPECT_THROW(port.InBufferCount(), RunTimeFailure);
    EXPECT_NO_THROW(port.SetCommPort(1));
}

TEST_F(SerialPortHangUp, KeepsThePortFromOpeningUntilThereIsADeviceAgain)
{
    HangUp();
    port.Close();
    EXPECT_NE(RefusalOf(port), "");
    const PseudoTerminal replugged;
    Link("com1", replugged);
    ASSERT_EQ(RefusalOf(port), "");
    port.Output("}");
    EXPECT_EQ(replugged.Receive(1), "}");
    replugged.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortHangUp, NoticedByAnOutputNeverClosesTheNextOpening)
{
    const PseudoTerminal next;
    terminal.HangUp();
    port.Output("}"); // queues the closing of what has gone
    port.Close();
    Link("com1", next);
    port.Open();
    PumpFor(20);
    port.Output("}");
    EXPECT_EQ(next.Receive(1), "}");
    next.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortHangUp, NotYetNoticedNeitherDisturbsTheClosingNorTheNextOpening)
{
    const PseudoTerminal next;
    terminal.HangUp();
    port.Close();
    Link("com1", next);
    port.Open();
    next.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortHangUp, OfALineThatTakesNoMoreBytesNeitherHangsNorFails)
{
    port.Output(std::string(100'000, 'x'));
    HangUp();
    EXPECT_NO_THROW(port.Output("}"));
    port.Close();
    EXPECT_THROW(port.InBufferCount(), RunTimeFailure);
}

TEST_F(SerialPortHangUp, AtTheEndOfTheProgramIsDroppedWithThePort)
{
    auto dropped = std::make_unique<platform::QtSerialPort>(LinksOf(folder));
    const PseudoTerminal other;
    Link("com2", other);
    dropped->SetCommPort(2);
    dropped->Open();
    {
        PseudoTerminal gone;
        Link("com2", gone);
        dropped->Close();
        dropped->Open();
    }
    dropped->Output("}");
    dropped.reset();
    EXPECT_NO_THROW(PumpFor(20));
}

} // namespace
} // namespace tarvex::tests
