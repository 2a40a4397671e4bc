#pragma once

#include "unit/line_log.h"
#include "unit/pacer.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// A unit that answers as one that was recorded did: each time the manager has said what it said in
/// the record, what the unit said after that comes again, with the pauses of the record.
///
/// A manager that says something else is reported. When the record has the same words further on,
/// it goes on from there; when it has not, there is no answer.
class Replay
{
public:
    /// Called for each difference between the manager and the recorded one.
    using Listener = std::function<void(const std::string&)>;

    /// With Pace::Fast the time that the characters took on the line is left out of the pauses;
    /// what the unit waited beyond that stays.
    Replay(std::vector<LogLine> record, Pace pace);

    /// From now on `listener` is called in place of the one before; an empty one is never called.
    void SetListener(Listener listener);

    /// Bytes that the manager has just written.
    void Receive(std::string_view bytes, Time now);

    /// When Deliver has something to do next; nothing while the unit is silent.
    std::optional<Time> NextDue() const;

    /// What has reached the manager by `now`. After a hang-up the line is dead.
    Delivery Deliver(Time now);

    /// True once all of the record has been said, by both ends.
    bool IsPlayed() const { return next_ == record_.size() && answers_.empty(); }

    /// Reports what the record has of the manager that never came. To be called once, at the end.
    void Finish();

private:
    struct Answer {
        Time due;
        std::string bytes;
        bool hangUp;
    };

    void Match(Time now);
    void GoOn(std::size_t matched, Time now);
    void Resynchronise(const std::string& said, Time now);
    Time PauseBefore(std::size_t line) const;
    std::size_t NextOfManager(std::size_t from) const;
    void Report(const std::string& difference) const;

    std::vector<LogLine> record_;
    Pace pace_;
    Listener listener_;
    std::string heard_;
    std::size_t next_; // the manager's line that is expected
    std::deque<Answer> answers_;
    bool dead_ = false;
};

} // namespace tarvex::unit
