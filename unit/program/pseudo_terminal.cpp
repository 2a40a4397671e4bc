#include "unit/program/pseudo_terminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <system_error>

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

/// Reports each closing of that path, whoever closes it and however it ends.
Descriptor WatchClosings(const std::string& path)
{
    Descriptor watch(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (::inotify_add_watch(watch.Number(), path.c_str(), IN_CLOSE) < 0) return Descriptor();
    return watch;
}

bool IsExclusive(int terminal)
{
    int exclusive = 0;
    return ::ioctl(terminal, TIOCGEXCL, &exclusive) == 0 && exclusive != 0;
}

/// A manager locks its end before it makes it exclusive and until it has given that back, and the
/// system takes the lock from a killed one.
void ReleaseUnlessLocked(int terminal)
{
    if (::flock(terminal, LOCK_EX | LOCK_NB) != 0) return;
    ::ioctl(terminal, TIOCNXCL);
    ::flock(terminal, LOCK_UN);
}
} // namespace

PseudoTerminal::PseudoTerminal() : master_(OpenMaster()), path_(SlavePath(master_))
{
    slave_ = Descriptor(::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (slave_.Number() < 0) throw Failure(path_.c_str());
    MakeRaw(slave_);
    closings_ = WatchClosings(path_);
}

void PseudoTerminal::NoteClosings() const
{
    std::array<char, 4096> events{};
    while (::read(closings_.Number(), events.data(), events.size()) > 0) {
    }
    if (IsExclusive(slave_.Number())) ReleaseUnlessLocked(slave_.Number());
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

bool PseudoTerminal::IsHeldByManager() const
{
    pollfd state{master_.Number(), 0, 0};
    return ::poll(&state, 1, 0) >= 0 && (state.revents & POLLHUP) == 0;
}

termios PseudoTerminal::Settings() const
{
    termios settings{};
    if (::tcgetattr(master_.Number(), &settings) != 0) throw Failure("terminal settings");
    return settings;
}

void PseudoTerminal::HangUp()
{
    slave_.Close();
    master_.Close();
}

} // namespace tarvex::unit
