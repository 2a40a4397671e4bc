#pragma once

#include "unit/program/descriptor.h"
#include "unit/reply.h"

#include <cstddef>
#include <optional>
#include <span>

namespace tarvex::unit
{

/// Sleeps until something happens: a notice, bytes on a descriptor, a deadline, or a request to end
/// the program (SIGTERM, SIGINT or SIGHUP). Deadlines are absolute and kept by the system's clock,
/// so that they do not drift.
class Waiter
{
public:
    enum class Woken { ByBytes, ByDeadline, ByEndRequest, ByNotice };

    /// Takes the three signals for itself from now on; moment 0 is now. Throws std::system_error
    /// when the system refuses.
    Waiter();

    /// Microseconds since this object was made.
    Time Now() const;

    /// Sleeps until the end is requested, `notices` has something to read (never, when it is -1),
    /// `descriptor` has bytes, or `deadline` has come (never, when there is none); of several
    /// together the first of this list counts.
    Woken Wait(int descriptor, int notices, std::optional<Time> deadline);

    /// The same for bytes, or the end of the line, on any of several descriptors.
    Woken Wait(std::span<const int> descriptors, std::optional<Time> deadline);

private:
    /// `first` becomes the place of the first descriptor that has bytes.
    Woken Wait(std::span<const int> descriptors, std::optional<Time> deadline, std::size_t& first);
    void Arm(std::optional<Time> deadline);

    Time origin_;
    Descriptor timer_;
    Descriptor signals_;
    std::optional<Time> armed_;
};

} // namespace tarvex::unit
