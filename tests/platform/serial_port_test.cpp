#include "platform/port_test.h"

#include <QCoreApplication>

#include <cerrno>
#include <termios.h>

namespace tarvex::tests
{
namespace
{

using ::testing::SizeIs;

using SerialPortLine = PortTest;

std::string AllBytes()
{
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    return bytes;
}

TEST_F(SerialPortLine, CarriesEveryByteToTheUnitUnchanged)
{
    port.Open();
    port.Output(AllBytes());
    EXPECT_EQ(terminal.Receive(256), AllBytes());
}

TEST_F(SerialPortLine, CarriesEveryByteFromTheUnitUnchanged)
{
    port.Open();
    terminal.Send(AllBytes());
    EXPECT_EQ(InputOf(256), AllBytes());
}

TEST_F(SerialPortLine, AnswersWhatTheUnitEchoes)
{
    const std::string frame("a00100\r\0\x11\x13\xFF\r\n", 13);
    port.Open();
    port.Output(frame);
    terminal.Send(terminal.Receive(frame.size()));
    EXPECT_EQ(InputOf(static_cast<int>(frame.size())), frame);
}

TEST_F(SerialPortLine, EchoesNothingByItself)
{
    port.Open();
    terminal.Send("!\r");
    EXPECT_EQ(InputOf(2), "!\r");
    EXPECT_EQ(terminal.Receive(1, std::chrono::milliseconds(20)), "");
}

TEST_F(SerialPortLine, SendsWithoutAnyPassOfTheEventQueue)
{
    port.Open();
    port.Output("}");
    EXPECT_EQ(terminal.Receive(1), "}");
}

TEST_F(SerialPortLine, SendsAnOutputLongerThanTheSendBufferWhole)
{
    const std::string bytes(513, 'x');
    port.Open();
    port.Output(bytes);
    EXPECT_EQ(terminal.Receive(bytes.size()), bytes);
}

TEST_F(SerialPortLine, SendsWhatTheLineDoesNotTakeAtOnceLater)
{
    std::string bytes;
    while (bytes.size() < 100'000)
        bytes += AllBytes();
    port.Open();
    port.Output(bytes);
    std::string received;
    EXPECT_TRUE(PumpUntil([&] {
        received += terminal.Receive(1, std::chrono::milliseconds(1));
        return received.size() >= bytes.size();
    }));
    EXPECT_TRUE(received == bytes) << received.size() << " bytes";
}

TEST_F(SerialPortLine, KeepsOutputsInOrder)
{
    port.Open();
    port.Output("}");
    port.Output("H\r");
    port.Output("");
    port.Output("}");
    EXPECT_EQ(terminal.Receive(4), "}H\r}");
}

TEST_F(SerialPortLine, InputEmptiesTheBuffer)
{
    port.Open();
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
    EXPECT_EQ(port.InBufferCount(), 0);
    EXPECT_EQ(port.Input(), "");
}

TEST_F(SerialPortLine, CountsWhatHasComeWithoutTakingIt)
{
    port.Open();
    terminal.Send("!!");
    EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == 2; }));
    EXPECT_EQ(port.InBufferCount(), 2);
    EXPECT_EQ(port.Input(), "!!");
}

TEST_F(SerialPortLine, DropsBytesFromBeforeTheOpening)
{
    terminal.Send("stale");
    terminal.AwaitArrival(5);
    port.Open();
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortLine, DropsUnreadBytesAtTheClosing)
{
    port.Open();
    terminal.Send("late reply");
    ASSERT_TRUE(PumpUntil([&] { return port.InBufferCount() == 10; }));
    terminal.Send("later still");
    terminal.AwaitArrival(11);
    port.Close();
    port.Open();
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortLine, DropsUnsentBytesAtTheClosing)
{
    port.Open();
    port.Output(std::string(100'000, 'x'));
    port.Close();
    port.Open();
    port.Output("}");
    const std::string received = terminal.Receive(100'000, std::chrono::milliseconds(100));
    EXPECT_LT(received.size(), 50'000U);
    EXPECT_TRUE(received.ends_with('}'));
}

TEST_F(SerialPortLine, HoldsAFullReceiveBufferAndGoesOnReceivingWhenItIsTaken)
{
    const std::string flood(3000, 'p');
    port.Open();
    terminal.Send(flood);
    EXPECT_THAT(InputOf(1024), SizeIs(1024));
    EXPECT_THAT(InputOf(1024), SizeIs(1024));
    EXPECT_THAT(InputOf(3000 - 2048), SizeIs(3000 - 2048));
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortLine, OpensAfterAFloodThatNobodyTookAndIsNotDeaf)
{
    port.Open();
    terminal.Send(std::string(3000, 'p'));
    ASSERT_TRUE(PumpUntil([&] { return port.InBufferCount() == 1024; }));
    PumpFor(20);
    port.Close();
    port.Open();
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortLine, IsNotDeafAfterBytesThatWereGoneWhenItCameToReadThem)
{
    port.Open();
    pump.DoEvents();
    terminal.Send("x");
    terminal.AwaitArrival(1);
    const auto takeAway = [this] {
        ::tcflush(terminal.Slave(), TCIFLUSH);
        errno = EAGAIN; // as any call may have left it; reading nothing sets no number of its own
    };
    QMetaObject::invokeMethod(qApp, takeAway, Qt::QueuedConnection);
    pump.DoEvents();
    ASSERT_EQ(port.InBufferCount(), 0);
    terminal.Send("!");
    EXPECT_EQ(InputOf(1), "!");
}

TEST_F(SerialPortLine, SetsTheLineTo9600BaudEightBitsTwoStopBitsWithoutFlowControl)
{
    port.Open();
    termios line{};
    ASSERT_EQ(::tcgetattr(terminal.Slave(), &line), 0);
    EXPECT_EQ(::cfgetospeed(&line), static_cast<speed_t>(B9600));
    EXPECT_EQ(::cfgetispeed(&line), static_cast<speed_t>(B9600));
    EXPECT_EQ(line.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_NE(line.c_cflag & CSTOPB, 0U);
    EXPECT_EQ(line.c_cflag & (PARENB | CRTSCTS), 0U);
    EXPECT_EQ(line.c_iflag & (IXON | IXOFF | ICRNL | INLCR | IGNCR), 0U);
    EXPECT_EQ(line.c_oflag & OPOST, 0U);
    EXPECT_EQ(line.c_lflag & (ICANON | ECHO | ISIG), 0U);
}

} // namespace
} // namespace tarvex::tests
