#pragma once

#include "unit/program/descriptor.h"
#include "unit/reply.h"

#include <optional>

namespace tarvex::unit
{

/// Sleeps until something happens: bytes on a descriptor, a deadline, or a request to end the
/// program (SIGTERM, SIGINT or SIGHUP). Deadlines are absolute and kept by the system's clock, so
/// that they do not drift.
class Waiter
{
public:
    enum class Woken { ByBytes, ByDeadline, ByEndRequest };

    /// Takes the three signals for itself from now on; moment 0 is now. Throws std::system_error
    /// when the system refuses.
    Waiter();

    /// Microseconds since this object was made.
    Time Now() const;

    /// Sleeps until `descriptor` has bytes, `deadline` has come (never, when there is none) or the
    /// end is requested; the last comes before the first, the first before the second.
    Woken Wait(int descriptor, std::optional<Time> deadline);

private:
    void Arm(std::optional<Time> deadline);

    Time origin_;
    Descriptor timer_;
    Descriptor signals_;
    std::optional<Time> armed_;
};

} // namespace tarvex::unit
