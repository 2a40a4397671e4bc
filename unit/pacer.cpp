#include "unit/pacer.h"

#include <algorithm>
#include <utility>

namespace tarvex::unit
{

namespace
{
constexpr std::int64_t kBitsACharacter = 11; // start, eight data, two stop bits
constexpr std::int64_t kBaud = 9600;
constexpr std::int64_t kMicrosecondsASecond = 1'000'000;
} // namespace

Time RunTime(Pace pace, std::int64_t characters)
{
    if (pace == Pace::Fast) return Time{0};
    return Time{(characters * kBitsACharacter * kMicrosecondsASecond + kBaud / 2) / kBaud};
}

Time Track::Carry(Time from)
{
    if (from > Free()) {
        start_ = from;
        count_ = 0;
    }
    ++count_;
    return Free();
}

Pacer::Pacer(Unit& unit, Pace pace) : unit_(unit), pace_(pace), in_(pace), out_(pace) {}

void Pacer::SetListener(Listener listener)
{
    listener_ = std::move(listener);
}

void Pacer::Receive(std::string_view bytes, Time now)
{
    if (dead_) return;
    // What the manager writes on seeing a reply is late by as much as the reply was.
    const auto from = now - std::exchange(lateness_, Time{0});
    for (const char byte : bytes)
        arriving_.push_back({in_.Carry(from), byte});
}

std::optional<Time> Pacer::NextDue() const
{
    auto due = NextHeard();
    if (!leaving_.empty()) due = std::min(leaving_.front().due, due.value_or(Time::max()));
    return due;
}

std::optional<Time> Pacer::NextHeard() const
{
    if (arriving_.empty()) return std::nullopt;
    const auto matters = [](const Arriving& arriving) {
        return arriving.byte == '}' || arriving.byte == '\r';
    };
    const auto found = std::ranges::find_if(arriving_, matters);
    return found != arriving_.end() ? found->due : arriving_.back().due;
}

Delivery Pacer::Deliver(Time now)
{
    while (!arriving_.empty() && arriving_.front().due <= now) {
        Hear(arriving_.front());
        arriving_.pop_front();
    }
    Delivery delivery;
    while (!dead_ && !leaving_.empty() && leaving_.front().due <= now) {
        lateness_ = now - leaving_.front().due;
        Leave(leaving_.front(), delivery);
        leaving_.pop_front();
    }
    if (dead_) {
        arriving_.clear();
        leaving_.clear();
    }
    return delivery;
}

void Pacer::Hear(const Arriving& arriving)
{
    for (const auto& reply : unit_.Feed({&arriving.byte, 1}, arriving.due))
        Say(reply, arriving.due);
}

void Pacer::Say(const Reply& reply, Time now)
{
    const auto from = std::max(out_.Free(), now) + reply.after;
    if (pace_ == Pace::Fast || reply.bytes.empty()) {
        leaving_.push_back({reply.bytes.empty() ? from : out_.Carry(from), reply.bytes, reply});
        return;
    }
    for (const char byte : reply.bytes)
        leaving_.push_back({out_.Carry(from), {byte}, std::nullopt});
    leaving_.back().whole = reply;
}

void Pacer::Leave(const Leaving& leaving, Delivery& delivery)
{
    delivery.bytes += leaving.bytes;
    if (!leaving.whole) return;
    if (listener_) listener_(*leaving.whole, leaving.due);
    dead_ = delivery.hangUp = leaving.whole->hangUp;
}

} // namespace tarvex::unit
