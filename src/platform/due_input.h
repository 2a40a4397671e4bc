#pragma once

#include <chrono>

namespace tarvex::platform
{

/// The last of a reply, as it is awaited on the line itself.
struct DueInput {
    using Clock = std::chrono::steady_clock;

    Clock::time_point due;   // at the pace of the line
    Clock::time_point until; // from then on it is late
    bool inParts = false;    // those before the last one come sooner, and need wake nobody
};

/// Waits until that device has something to be read, or something else to say; true for the first.
/// Sleeps until shortly before that is due, in parts whatever comes, and is awake then. Ends when
/// it is late, at once where it is late already.
bool AwaitDue(int descriptor, const DueInput& input);

} // namespace tarvex::platform
