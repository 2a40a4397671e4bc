#pragma once

#include "unit/program/descriptor.h"
#include "unit/reply.h"

#include <cstddef>
#include <optional>
#include <poll.h>
#include <span>

namespace tarvex::unit
{

/// Sleeps until something happens: a notice, bytes on a descriptor, a deadline, or a request to end
/// the program (SIGTERM, SIGINT or SIGHUP). Deadlines are absolute and kept by the system's clock,
/// so that they do not drift.
///
/// To wake a sleeping process takes the system a tenth of a millisecond at times. So a wait may be
/// awake where that would show: for some time before a deadline, and as long after a wait without
/// one has begun. It takes a processor meanwhile, but gives way to whoever else wants that.
class Waiter
{
public:
    enum class Woken { ByBytes, ByDeadline, ByEndRequest, ByNotice };

    /// Takes the three signals for itself from now on; moment 0 is now. `awake` is how long a wait
    /// is awake at a time. Throws std::system_error when the system refuses.
    explicit Waiter(Time awake = Time{0});

    /// Microseconds since this object was made.
    Time Now() const;

    /// Waits until the end is requested, `notices` has something to read (never, when it is -1),
    /// `descriptor` has bytes, or `deadline` has come (never, when there is none); of several
    /// together the first of this list counts.
    Woken Wait(int descriptor, int notices, std::optional<Time> deadline);

    /// The same for bytes, or the end of the line, on any of several descriptors.
    Woken Wait(std::span<const int> descriptors, std::optional<Time> deadline);

private:
    /// `first` becomes the place of the first descriptor that has bytes.
    Woken Wait(std::span<const int> descriptors, std::optional<Time> deadline, std::size_t& first);
    void Arm(std::optional<Time> deadline);
    void Watch(std::span<pollfd> watched, std::optional<Time> deadline) const;

    Time awake_;
    Time origin_;
    Descriptor timer_;
    Descriptor signals_;
    std::optional<Time> armed_;
};

} // namespace tarvex::unit
