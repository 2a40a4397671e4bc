#include "platform/due_input.h"

#include <algorithm>
#include <array>
#include <thread>

#include <poll.h>

namespace tarvex::platform
{

namespace
{

using namespace std::chrono_literals;
using Clock = DueInput::Clock;

/// Before it is due. The longer a processor sleeps, the more deeply, and the longer it takes to
/// wake up: after 2 ms mostly 0.05 ms, but 0.2 ms two times in a hundred; after a fifth of a
/// millisecond hardly ever over 0.07; the system's timers may add 0.05. So it is woken twice, and
/// after the second time it is awake when that is due, or very soon after.
constexpr std::array kWakes{300us, 60us};

/// For so long after it is due the program stays awake. To sleep for less than this and be woken up
/// takes the processor as much time as to look on.
constexpr auto kAwake = 200us;

/// Looks at the device, and sleeps for so long if it has nothing to say.
int Look(pollfd& device, std::chrono::nanoseconds length)
{
    const auto seconds = std::chrono::floor<std::chrono::seconds>(length);
    const timespec time{seconds.count(), (length - seconds).count()};
    return ::ppoll(&device, 1, &time, nullptr);
}

int SleepUntilNearlyDue(pollfd& device, const DueInput& input)
{
    for (const auto ahead : kWakes) {
        const auto wake = input.due - ahead;
        if (input.inParts) std::this_thread::sleep_until(wake);
        const auto left = wake - Clock::now();
        const int ready = left > 0ns ? Look(device, left) : 0;
        if (ready != 0) return ready;
    }
    return 0;
}

int LookUntil(pollfd& device, Clock::time_point end)
{
    int ready = 0;
    while (ready == 0 && Clock::now() < end)
        ready = Look(device, 0ns);
    return ready;
}

} // namespace

bool AwaitDue(int descriptor, const DueInput& input)
{
    pollfd device{descriptor, POLLIN, 0};
    int ready = SleepUntilNearlyDue(device, input);
    if (ready == 0) ready = LookUntil(device, input.due + kAwake);
    if (ready == 0)
        ready = Look(device, std::max<Clock::duration>(input.until - Clock::now(), 0ns));
    return ready > 0 && device.revents == POLLIN;
}

} // namespace tarvex::platform
