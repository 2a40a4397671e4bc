#include "unit/replay.h"

#include "unit/escape.h"

#include <algorithm>
#include <utility>

namespace tarvex::unit
{

namespace
{
/// Below it a pause of a fast replay is none: it is how late the recording program woke up.
constexpr Time kLeastPause{10'000};

/// What the manager has said in one go, if it is complete: a wake, or a frame up to its CR.
std::size_t LengthOfPiece(std::string_view heard)
{
    if (heard.starts_with('}')) return 1;
    const auto end = heard.find('\r');
    return end == std::string_view::npos ? 0 : end + 1;
}

std::string Quoted(std::string_view bytes)
{
    return "\"" + Escape(bytes) + "\"";
}
} // namespace

Replay::Replay(std::vector<LogLine> record, Pace pace)
    : record_(std::move(record)), pace_(pace), next_(NextOfManager(0))
{
}

void Replay::SetListener(Listener listener)
{
    listener_ = std::move(listener);
}

void Replay::Receive(std::string_view bytes, Time now)
{
    if (dead_) return;
    heard_ += bytes;
    Match(now);
}

void Replay::Match(Time now)
{
    while (!heard_.empty()) {
        const auto& expected = next_ < record_.size() ? record_[next_].bytes : std::string();
        if (!expected.empty() && heard_.starts_with(expected)) {
            heard_.erase(0, expected.size());
            GoOn(next_, now);
            continue;
        }
        const auto length = LengthOfPiece(heard_);
        if (expected.starts_with(heard_) || length == 0) return; // as far as it goes
        const auto said = heard_.substr(0, length);
        heard_.erase(0, length);
        Resynchronise(said, now);
    }
}

void Replay::GoOn(std::size_t matched, Time now)
{
    next_ = NextOfManager(matched + 1);
    auto due = now;
    for (auto line = matched + 1; line < next_; ++line) {
        due += PauseBefore(line);
        if (record_[line].speaker == Speaker::Manager) continue; // what happened at its end
        const bool isBreak = record_[line].note == kBreakNote;
        answers_.push_back({due, isBreak ? std::string(1, '\0') : record_[line].bytes,
                            record_[line].note == kHangUpNote});
    }
}

void Replay::Resynchronise(const std::string& said, Time now)
{
    const auto expected = next_ < record_.size() ? "the record has " + TextOf(record_[next_])
                                                 : std::string("the record has come to its end");
    for (auto line = next_; line < record_.size(); line = NextOfManager(line + 1)) {
        if (record_[line].bytes != said) continue;
        Report(expected + ", the manager says " + Quoted(said) + ", as later in the record");
        return GoOn(line, now);
    }
    Report(expected + ", the manager says " + Quoted(said));
}

Time Replay::PauseBefore(std::size_t line) const
{
    const auto pause = std::max(record_[line].at - record_[line - 1].at, Time{0});
    if (pace_ == Pace::Line) return pause;
    auto characters = record_[line].bytes.size();
    if (record_[line - 1].speaker == Speaker::Manager) characters += record_[line - 1].bytes.size();
    const auto rest = pause - RunTime(Pace::Line, static_cast<std::int64_t>(characters));
    return rest < kLeastPause ? Time{0} : rest;
}

std::size_t Replay::NextOfManager(std::size_t from) const
{
    const auto isSaid = [](const LogLine& line) {
        return line.speaker == Speaker::Manager && !line.bytes.empty();
    };
    const auto start =
        record_.begin() + static_cast<std::ptrdiff_t>(std::min(from, record_.size()));
    return static_cast<std::size_t>(std::find_if(start, record_.end(), isSaid) - record_.begin());
}

std::optional<Time> Replay::NextDue() const
{
    if (answers_.empty()) return std::nullopt;
    return answers_.front().due;
}

Delivery Replay::Deliver(Time now)
{
    Delivery delivery;
    while (!dead_ && !answers_.empty() && answers_.front().due <= now) {
        // A terminal that is hung up takes unread bytes with it: they go first, alone.
        if (answers_.front().hangUp && !delivery.bytes.empty()) {
            answers_.front().due = now + kHangUpPause;
            break;
        }
        delivery.bytes += answers_.front().bytes;
        dead_ = delivery.hangUp = answers_.front().hangUp;
        answers_.pop_front();
    }
    return delivery;
}

void Replay::Finish()
{
    if (!heard_.empty()) Report("the manager broke off after " + Quoted(heard_));
    if (next_ < record_.size() && !dead_)
        Report("the record goes on with " + TextOf(record_[next_]));
}

void Replay::Report(const std::string& difference) const
{
    if (listener_) listener_(difference);
}

} // namespace tarvex::unit
