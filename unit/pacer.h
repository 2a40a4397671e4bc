#pragma once

#include "unit/unit.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// How fast the characters of the line follow each other.
enum class Pace {
    Line, ///< 9600 baud, 11 bits a character
    Fast, ///< no time at all
};

/// Time that a run of characters takes, to the nearest microsecond.
Time RunTime(Pace pace, std::int64_t characters);

/// One direction of the line. Characters of an unbroken run are counted from the run's start, so
/// that the rounding to microseconds never adds up.
class Track
{
public:
    explicit Track(Pace pace) : pace_(pace) {}

    /// Puts one character on the track, at `from` or when the track is free; returns the moment at
    /// which it has arrived whole.
    Time Carry(Time from);

    /// The moment at which the last character has arrived.
    Time Free() const { return start_ + RunTime(pace_, count_); }

private:
    Pace pace_;
    Time start_{0};
    std::int64_t count_ = 0;
};

/// What has reached the manager.
struct Delivery {
    std::string bytes;
    bool hangUp = false;
};

/// The line between the manager and the unit, both directions at their pace, by whatever clock the
/// caller keeps. The caller hands over what the manager writes, sleeps until NextDue, and delivers.
///
/// All moments are counted from the moments at which the bytes before were due, not from those at
/// which the caller got round to them, so a caller that wakes a little late every time does not
/// slow down the conversation as a whole.
class Pacer
{
public:
    /// Called for each reply when its last character has left, with that moment.
    using Listener = std::function<void(const Reply&, Time)>;

    /// The unit must outlive the pacer.
    Pacer(Unit& unit, Pace pace);

    /// Bytes that the manager has just written.
    void Receive(std::string_view bytes, Time now);

    /// When Deliver has something to do next; nothing while the line is at rest.
    std::optional<Time> NextDue() const;

    /// Lets the unit hear what has arrived by `now`, and takes what has reached the manager by
    /// then. After a hang-up the line is dead.
    Delivery Deliver(Time now);

    /// What was delivered last goes out later by that, as when its caller writes a log first.
    void Delay(Time by) { lateness_ += by; }

    /// From now on `listener` is called in place of the one before; an empty one is never called.
    void SetListener(Listener listener);

private:
    struct Arriving {
        Time due;
        char byte;
    };
    struct Leaving {
        Time due;
        std::string bytes;
        std::optional<Reply> whole; ///< on the last piece of a reply
    };

    /// When the next byte arrives that the unit may act on; sooner the caller need not wake.
    std::optional<Time> NextHeard() const;
    void Hear(const Arriving& arriving);
    void Say(const Reply& reply, Time now);
    void Leave(const Leaving& leaving, Delivery& delivery);

    Unit& unit_;
    Pace pace_;
    Track in_;
    Track out_;
    std::deque<Arriving> arriving_;
    std::deque<Leaving> leaving_;
    Time lateness_{0};
    Listener listener_;
    bool dead_ = false;
};

} // namespace tarvex::unit
