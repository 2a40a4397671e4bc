#include "unit/tap/program/opening_watch.h"

#include <array>
#include <cerrno>
#include <sys/inotify.h>
#include <system_error>

namespace tarvex::unit
{

OpeningWatch::OpeningWatch(const std::string& path)
    : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (::inotify_add_watch(Number(), path.c_str(), IN_OPEN) < 0)
        throw std::system_error(errno, std::generic_category(), path);
}

bool OpeningWatch::WasOpened() const
{
    std::array<char, 4096> events{};
    bool opened = false;
    while (::read(Number(), events.data(), events.size()) > 0)
        opened = true;
    return opened;
}

} // namespace tarvex::unit
