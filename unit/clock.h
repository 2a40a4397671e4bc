#pragma once

#include "unit/reply.h"

#include <chrono>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// The unit's clock: whole seconds of the years 2000 to 2099, given as twelve digits YYMMDDhhmmss.
/// It keeps its own time from the moments that it is handed.
class Clock
{
public:
    /// Runs from 1 January 2000, 00:00:00 at the moment 0.
    Clock() = default;

    /// Sets the clock; whether it runs stays as it was. Returns false, with nothing changed, when
    /// the text is not twelve digits of a date and time that exist.
    bool Set(std::string_view digits, Time now);

    /// Lets a stopped clock run on; a running one is not touched.
    void Start(Time now);

    /// Holds the clock at its time of the moment.
    void Stop(Time now);

    /// Twelve digits YYMMDDhhmmss.
    std::string Read(Time now) const;

private:
    std::chrono::sys_seconds TimeAt(Time now) const;

    std::chrono::sys_seconds set_{std::chrono::sys_days{std::chrono::year{2000} / 1 / 1}};
    Time setAt_{0};
    bool running_ = true;
};

} // namespace tarvex::unit
