#include "unit/program/pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <termios.h>

namespace tarvex::unit
{

namespace
{
std::system_error Failure(const char* what)
{
    return {errno, std::generic_category(), what};
}

Descriptor OpenMaster()
{
    Descriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (master.Number() < 0 || ::grantpt(master.Number()) != 0 || ::unlockpt(master.Number()) != 0)
        throw Failure("no pseudo terminal");
    const int flags = ::fcntl(master.Number(), F_GETFL);
    if (flags < 0 || ::fcntl(master.Number(), F_SETFL, flags | O_NONBLOCK) != 0)
        throw Failure("pseudo terminal");
    return master;
}

std::string SlavePath(const Descriptor& master)
{
    std::array<char, 128> name{};
    if (::ptsname_r(master.Number(), name.data(), name.size()) != 0)
        throw Failure("pseudo terminal without a name");
    return name.data();
}

void MakeRaw(const Descriptor& terminal)
{
    termios settings{};
    if (::tcgetattr(terminal.Number(), &settings) != 0) throw Failure("terminal settings");
    ::cfmakeraw(&settings);
    settings.c_cflag |= CSTOPB | CLOCAL | CREAD;
    ::cfsetspeed(&settings, B9600);
    if (::tcsetattr(terminal.Number(), TCSANOW, &settings) != 0) throw Failure("terminal settings");
}
} // namespace

PseudoTerminal::PseudoTerminal() : master_(OpenMaster()), path_(SlavePath(master_))
{
    slave_ = Descriptor(::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (slave_.Number() < 0) throw Failure(path_.c_str());
    MakeRaw(slave_);
}

std::string PseudoTerminal::Read() const
{
    std::array<char, 4096> buffer{};
    const auto count = ::read(master_.Number(), buffer.data(), buffer.size());
    return count > 0 ? std::string(buffer.data(), static_cast<std::size_t>(count)) : std::string();
}

void PseudoTerminal::Write(std::string_view bytes) const
{
    while (!bytes.empty()) {
        const auto count = ::write(master_.Number(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void PseudoTerminal::HangUp()
{
    slave_.Close();
    master_.Close();
}

} // namespace tarvex::unit
