#pragma once

#include "unit/clock.h"
#include "unit/faults.h"
#include "unit/frame_reader.h"
#include "unit/memory.h"
#include "unit/reply.h"

#include <array>
#include <functional>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// The read-out unit as the line knows it: a consumer of bytes that has a memory and a clock.
///
/// It answers a wake with "!", a read frame with a page, the question for the clock with fourteen
/// characters, and nothing else with anything. A wake that it leaves unanswered has not woken it.
class Unit
{
public:
    /// Called for everything that the unit hears, when it hears it.
    using Listener = std::function<void(const Heard&, Time)>;

    /// A unit with the memory, the clock running from 1 January 2000 and the faults given.
    explicit Unit(Memory memory, std::vector<Fault> faults = {});

    /// Takes bytes that have come over the line by the moment `now`, and returns what the unit
    /// does on it, in order. After a reply that hangs up it neither hears nor does anything.
    std::vector<Reply> Feed(std::string_view bytes, Time now);

    const Memory& StoredMemory() const { return memory_; }
    /// The unit's own clock, which its owner may set, stop and start.
    Clock& RunningClock() { return clock_; }

    /// How often a moment has come since the start.
    int CountOf(Moment moment) const { return counts_[static_cast<std::size_t>(moment)]; }

    /// From now on `listener` is called in place of the one before; an empty one is never called.
    void SetListener(Listener listener);

private:
    std::vector<Reply> React(const Heard& heard, Time now);
    std::vector<Reply> Wake();
    std::vector<Reply> Answer(std::string_view frame, Time now);
    std::vector<Reply> ReadPage(std::string_view frame);
    void Store(std::string_view frame, Time now);
    std::vector<Reply> At(Moment moment, std::string_view answer);

    Memory memory_;
    Clock clock_;
    std::vector<Fault> faults_;
    FrameReader reader_;
    Listener listener_;
    std::array<int, 4> counts_{};
    bool gone_ = false;
};

} // namespace tarvex::unit
