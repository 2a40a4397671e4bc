#include "unit/tap/program/serial_device.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <system_error>

namespace tarvex::unit
{

namespace
{
constexpr int kPatience = 1000; // milliseconds
constexpr tcflag_t kCharacter = CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS;
constexpr tcflag_t kFlow = IXON | IXOFF | IXANY;

struct Speed {
    speed_t code;
    int baud;
};
constexpr std::array<Speed, 8> kSpeeds{{{B1200, 1200},
                                        {B2400, 2400},
                                        {B4800, 4800},
                                        {B9600, 9600},
                                        {B19200, 19200},
                                        {B38400, 38400},
                                        {B57600, 57600},
                                        {B115200, 115200}}};

std::system_error Failure(const std::filesystem::path& path)
{
    return {errno, std::generic_category(), path.string()};
}

Descriptor Open(const std::filesystem::path& path)
{
    Descriptor device(::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (device.Number() < 0 || ::flock(device.Number(), LOCK_EX | LOCK_NB) != 0 ||
        ::ioctl(device.Number(), TIOCEXCL) != 0)
        throw Failure(path);
    return device;
}

std::string Baud(speed_t code)
{
    for (const auto& speed : kSpeeds)
        if (speed.code == code) return std::to_string(speed.baud);
    return "?";
}

char Bits(tcflag_t size)
{
    switch (size & static_cast<tcflag_t>(CSIZE)) {
    case CS5:
        return '5';
    case CS6:
        return '6';
    case CS7:
        return '7';
    default:
        return '8';
    }
}

char Parity(tcflag_t flags)
{
    if ((flags & static_cast<tcflag_t>(PARENB)) == 0) return 'N';
    return (flags & static_cast<tcflag_t>(PARODD)) != 0 ? 'O' : 'E';
}
} // namespace

SerialDevice::SerialDevice(const std::filesystem::path& path) : device_(Open(path))
{
    if (::tcgetattr(Number(), &before_) != 0) throw Failure(path);
    now_ = before_;
    ::cfmakeraw(&now_);
    now_.c_iflag |= INPCK | PARMRK;
    now_.c_cflag = (now_.c_cflag & ~kCharacter) | CS8 | CSTOPB | CLOCAL | CREAD;
    ::cfsetspeed(&now_, B9600);
    if (::tcsetattr(Number(), TCSANOW, &now_) != 0) throw Failure(path);
    ::tcflush(Number(), TCIOFLUSH);
    SetReady(false);
    AskLowLatency();
}

SerialDevice::~SerialDevice()
{
    serial_struct driver{};
    if (flagsBefore_ && ::ioctl(Number(), TIOCGSERIAL, &driver) == 0) {
        driver.flags = *flagsBefore_;
        ::ioctl(Number(), TIOCSSERIAL, &driver);
    }
    ::tcsetattr(Number(), TCSANOW, &before_);
    ::ioctl(Number(), TIOCNXCL);
}

/// Some adapters keep what they receive for 16 ms.
void SerialDevice::AskLowLatency()
{
    serial_struct driver{};
    if (::ioctl(Number(), TIOCGSERIAL, &driver) != 0) return;
    flagsBefore_ = driver.flags;
    driver.flags |= ASYNC_LOW_LATENCY;
    ::ioctl(Number(), TIOCSSERIAL, &driver);
}

std::optional<std::string> SerialDevice::Read() const
{
    std::array<char, 4096> buffer{};
    const auto count = ::read(Number(), buffer.data(), buffer.size());
    if (count > 0) return std::string(buffer.data(), static_cast<std::size_t>(count));
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return std::string();
    pollfd state{Number(), 0, 0};
    const bool gone = count < 0 || ::poll(&state, 1, 0) < 0 || (state.revents & POLLHUP) != 0;
    return gone ? std::nullopt : std::optional(std::string());
}

void SerialDevice::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto count = ::write(Number(), bytes.data(), bytes.size());
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
        if (count >= 0 || errno == EINTR) continue;
        pollfd room{Number(), POLLOUT, 0};
        if (errno != EAGAIN || ::poll(&room, 1, kPatience) <= 0) return;
    }
}

void SerialDevice::Apply(const termios& wanted)
{
    now_.c_cflag = (now_.c_cflag & ~kCharacter) | (wanted.c_cflag & kCharacter);
    now_.c_iflag = (now_.c_iflag & ~kFlow) | (wanted.c_iflag & kFlow);
    ::cfsetspeed(&now_, ::cfgetospeed(&wanted));
    ::tcsetattr(Number(), TCSADRAIN, &now_);
}

void SerialDevice::SetReady(bool ready) const
{
    int lines = 0;
    if (::ioctl(Number(), TIOCMGET, &lines) != 0) return;
    lines = (lines & ~(TIOCM_RTS | TIOCM_DTR)) | (ready ? TIOCM_DTR : 0);
    ::ioctl(Number(), TIOCMSET, &lines);
}

std::string SettingsText(const termios& settings)
{
    const bool twoStopBits = (settings.c_cflag & static_cast<tcflag_t>(CSTOPB)) != 0;
    return Baud(::cfgetospeed(&settings)) + " " + Bits(settings.c_cflag) +
           Parity(settings.c_cflag) + (twoStopBits ? "2" : "1");
}

} // namespace tarvex::unit
