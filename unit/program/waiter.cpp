#include "unit/program/waiter.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <sched.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <system_error>
#include <vector>

namespace tarvex::unit
{

namespace
{
std::system_error Failure(const char* what)
{
    return {errno, std::generic_category(), what};
}

Time SystemTime()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::chrono::seconds{now.tv_sec} +
           std::chrono::duration_cast<Time>(std::chrono::nanoseconds{now.tv_nsec});
}

Descriptor TakeSignals()
{
    sigset_t set{};
    ::sigemptyset(&set);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        ::sigaddset(&set, number);
    // A reader of the log that goes away must not take the program with it.
    if (::signal(SIGPIPE, SIG_IGN) == SIG_ERR) throw Failure("signals");
    if (::sigprocmask(SIG_BLOCK, &set, nullptr) != 0) throw Failure("signals");
    Descriptor signals(::signalfd(-1, &set, SFD_CLOEXEC));
    if (signals.Number() < 0) throw Failure("signals");
    return signals;
}
} // namespace

Waiter::Waiter(Time awake)
    : awake_(awake),
      origin_(SystemTime()),
      timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC)),
      signals_(TakeSignals())
{
    if (timer_.Number() < 0) throw Failure("timer");
}

Time Waiter::Now() const
{
    return SystemTime() - origin_;
}

Waiter::Woken Waiter::Wait(int descriptor, int notices, std::optional<Time> deadline)
{
    const std::array<int, 2> both{notices, descriptor};
    std::size_t first = 0;
    const auto woken = Wait(both, deadline, first);
    return woken == Woken::ByBytes && first == 0 ? Woken::ByNotice : woken;
}

Waiter::Woken Waiter::Wait(std::span<const int> descriptors, std::optional<Time> deadline)
{
    std::size_t any = 0;
    return Wait(descriptors, deadline, any);
}

Waiter::Woken Waiter::Wait(std::span<const int> descriptors, std::optional<Time> deadline,
                           std::size_t& first)
{
    Arm(deadline ? std::optional(*deadline - awake_) : std::nullopt);
    std::vector<pollfd> watched{{timer_.Number(), POLLIN, 0}, {signals_.Number(), POLLIN, 0}};
    for (const int descriptor : descriptors)
        watched.push_back({descriptor, POLLIN, 0});
    Watch(watched, deadline);
    if (watched[1].revents != 0) return Woken::ByEndRequest;
    const auto isWoken = [](const pollfd& one) { return one.revents != 0; };
    const auto found = std::find_if(watched.begin() + 2, watched.end(), isWoken);
    first = static_cast<std::size_t>(found - watched.begin() - 2);
    return found == watched.end() ? Woken::ByDeadline : Woken::ByBytes;
}

/// Returns when one of them has something, the timer first of all of them; that one counts only
/// from the deadline on.
void Waiter::Watch(std::span<pollfd> watched, std::optional<Time> deadline) const
{
    const Time start = Now();
    for (;;) {
        const Time now = Now();
        const bool isAwake = deadline ? *deadline - now < awake_ : now - start < awake_;
        if (isAwake) ::sched_yield(); // what carries the bytes of the terminal needs a processor
        const int ready = ::poll(watched.data(), watched.size(), isAwake ? 0 : -1);
        if (ready < 0 && errno != EINTR) throw Failure("wait");
        const bool isTimerAlone = ready == 1 && watched[0].revents != 0;
        if (ready > 0 && (!isTimerAlone || Now() >= deadline.value_or(Time{0}))) return;
    }
}

void Waiter::Arm(std::optional<Time> deadline)
{
    // Setting the timer also takes away an expiry that nobody has read.
    if (!deadline && !armed_) return;
    armed_ = deadline;
    itimerspec setting{};
    if (deadline) {
        const auto moment = std::max(origin_ + *deadline, Time{1}); // zero would disarm it
        const auto second = std::chrono::floor<std::chrono::seconds>(moment);
        setting.it_value.tv_sec = second.count();
        setting.it_value.tv_nsec = std::chrono::nanoseconds{moment - second}.count();
    }
    if (::timerfd_settime(timer_.Number(), TFD_TIMER_ABSTIME, &setting, nullptr) != 0)
        throw Failure("timer");
}

} // namespace tarvex::unit
