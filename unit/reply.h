#pragma once

#include <chrono>
#include <string>

namespace tarvex::unit
{

/// A moment, in microseconds since whatever origin the caller keeps. It never runs backwards.
using Time = std::chrono::microseconds;

/// Something the unit does on its own side of the line.
struct Reply {
    /// Pause before the first character, in microseconds. It counts from the moment at which the
    /// line is free: the end of the byte that set the reply off, or of the reply before it.
    Time after{0};
    /// The bytes that leave the unit; may be empty.
    std::string bytes = {};
    /// True when the unit takes its end of the line away after these bytes.
    bool hangUp = false;

    bool operator==(const Reply&) const = default;
};

} // namespace tarvex::unit
