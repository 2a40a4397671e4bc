#pragma once

#include "unit/pacer.h"

#include <optional>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// The line through a USB adapter, which gathers what the unit sends: it hands its bytes to the
/// manager when 62 are waiting or when its latency timer runs out. The timer runs all the time,
/// also over an empty buffer, and restarts with each packet. What the manager writes passes at
/// once.
///
/// It is used like the pacer that it reads from. Without a timer it is that pacer.
class Adapter
{
public:
    /// `timer` is the adapter's latency; the pacer must outlive the adapter.
    Adapter(Pacer& line, std::optional<Time> timer) : line_(line), timer_(timer) {}

    /// Bytes that the manager has just written.
    void Receive(std::string_view bytes, Time now);

    /// When Deliver has something to do next; nothing while the line is at rest.
    std::optional<Time> NextDue() const;

    /// What has reached the manager by `now`. When the line goes away, what still waits comes with
    /// it.
    Delivery Deliver(Time now);

    /// What was delivered last goes out later by that.
    void Delay(Time by);

private:
    Time TimerEnd() const;
    void Advance(Time due, Time now);
    void Gather(const Delivery& arrived, Time at, Time now);
    void HandOver(std::size_t count, Time at, Time now);

    Pacer& line_;
    std::optional<Time> timer_;
    Time started_{0}; ///< the last packet, or the last time that the timer ran out for nothing
    std::string waiting_;
    Delivery handedOver_;
    Time lateness_{0};
};

} // namespace tarvex::unit
