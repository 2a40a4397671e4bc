#include "real_line/uart.h"

#include <array>
#include <cstdint>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace tarvex::tests
{

namespace
{

constexpr const char* kFarPort = "/dev/ttyS2";
constexpr off_t kChip = 0x2F8; // where the registers of ttyS1 are among the machine's ports

// The wire between the two chips is a telnet line, the one kind that carries a break.
constexpr char kCommand = '\xFF';
constexpr char kBreak = '\xF3';

std::system_error Failure(const char* what)
{
    return {errno, std::generic_category(), what};
}

void MakeRaw(int port)
{
    termios settings{};
    if (::tcgetattr(port, &settings) != 0) throw Failure("far port");
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, B9600);
    settings.c_cflag |= CLOCAL | CREAD | CSTOPB;
    if (::tcsetattr(port, TCSANOW, &settings) != 0) throw Failure("far port");
}

/// Passes over what the wire said of itself when the machine was started.
void Drain(int port)
{
    std::array<char, 64> bytes{};
    pollfd waiting{port, POLLIN, 0};
    while (::poll(&waiting, 1, 200) > 0)
        if (::read(port, bytes.data(), bytes.size()) < 0) throw Failure("far port");
}

/// The registers of a 16550A.
class Registers
{
public:
    Registers() : ports_(::open("/dev/port", O_RDWR | O_CLOEXEC))
    {
        if (ports_ < 0) throw Failure("the machine's ports");
    }
    ~Registers() { ::close(ports_); }
    Registers(const Registers&) = delete;
    Registers& operator=(const Registers&) = delete;

    unsigned Read(int which) const
    {
        std::uint8_t value = 0;
        if (::pread(ports_, &value, 1, kChip + which) != 1) throw Failure("register");
        return value;
    }

    void Write(int which, unsigned value) const
    {
        const auto byte = static_cast<std::uint8_t>(value);
        if (::pwrite(ports_, &byte, 1, kChip + which) != 1) throw Failure("register");
    }

    /// The speed is where the characters are, as long as a bit of the line register is set.
    unsigned Divisor() const
    {
        const unsigned line = Read(3);
        Write(3, line | 0x80);
        const unsigned divisor = Read(0) + 256 * Read(1);
        Write(3, line);
        return divisor;
    }

private:
    int ports_;
};

} // namespace

Uart::Uart() : farPort_(::open(kFarPort, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC))
{
    if (farPort_ < 0) throw Failure(kFarPort);
    MakeRaw(farPort_);
    Drain(farPort_);
    unit_ = std::jthread([this](const std::stop_token& end) { Serve(end); });
}

Uart::~Uart()
{
    unit_.request_stop();
    unit_.join();
    ::close(farPort_);
}

void Uart::Serve(const std::stop_token& end)
{
    std::array<char, 256> bytes{};
    while (!end.stop_requested()) {
        pollfd port{farPort_, POLLIN, 0};
        if (::poll(&port, 1, 50) <= 0) continue;
        const auto count = ::read(farPort_, bytes.data(), bytes.size());
        if (count > 0) Say(farEnd.Hear({bytes.data(), static_cast<std::size_t>(count)}));
    }
}

LineState Uart::State() const
{
    const Registers chip;
    const unsigned line = chip.Read(3);
    const unsigned modem = chip.Read(4);
    LineState state;
    state.baud = static_cast<int>(115'200 / chip.Divisor());
    state.dataBits = static_cast<int>(5 + (line & 3U));
    state.stopBits = (line & 4U) != 0 ? 2 : 1;
    state.parity = (line & 8U) == 0 ? 'N' : (line & 16U) == 0 ? 'O' : 'E';
    state.dataTerminalReady = (modem & 1U) != 0;
    state.requestToSend = (modem & 2U) != 0;
    return state;
}

void Uart::Say(std::string_view bytes)
{
    std::string wired;
    for (const char byte : bytes)
        wired.append(byte == kCommand ? 2 : 1, byte);
    Write(wired);
}

void Uart::Break()
{
    Write({std::array{kCommand, kBreak}.data(), 2});
}

void Uart::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto count = ::write(farPort_, bytes.data(), bytes.size());
        if (count < 0 && errno != EAGAIN) throw Failure("far port");
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        pollfd port{farPort_, POLLOUT, 0};
        if (!bytes.empty()) ::poll(&port, 1, 50);
    }
}

} // namespace tarvex::tests
