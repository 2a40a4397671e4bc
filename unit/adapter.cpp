#include "unit/adapter.h"

#include <algorithm>
#include <utility>

namespace tarvex::unit
{

namespace
{
constexpr std::size_t kPacket = 62; // 64 bytes of a USB packet, two of them the line's state
} // namespace

void Adapter::Receive(std::string_view bytes, Time now)
{
    // What the manager writes on seeing a packet is late by as much as the packet was.
    line_.Receive(bytes, now - std::exchange(lateness_, Time{0}));
}

std::optional<Time> Adapter::NextDue() const
{
    const auto due = line_.NextDue();
    if (waiting_.empty()) return due;
    return std::min(TimerEnd(), due.value_or(Time::max()));
}

Delivery Adapter::Deliver(Time now)
{
    if (!timer_) return line_.Deliver(now);
    for (auto due = NextDue(); due && *due <= now; due = NextDue())
        Advance(*due, now);
    return std::exchange(handedOver_, {});
}

void Adapter::Delay(Time by)
{
    if (!timer_) return line_.Delay(by);
    lateness_ += by;
}

Time Adapter::TimerEnd() const
{
    return started_ + *timer_;
}

void Adapter::Advance(Time due, Time now)
{
    if (!waiting_.empty() && TimerEnd() == due) {
        HandOver(waiting_.size(), due, now);
    } else {
        Gather(line_.Deliver(due), due, now);
    }
}

void Adapter::Gather(const Delivery& arrived, Time at, Time now)
{
    if (waiting_.empty()) started_ += (at - started_) / *timer_ * *timer_;
    waiting_ += arrived.bytes;
    while (waiting_.size() >= kPacket)
        HandOver(kPacket, at, now);
    if (!arrived.hangUp) return;
    HandOver(waiting_.size(), at, now);
    handedOver_.hangUp = true;
}

void Adapter::HandOver(std::size_t count, Time at, Time now)
{
    handedOver_.bytes += waiting_.substr(0, count);
    waiting_.erase(0, count);
    started_ = at;
    lateness_ = now - at;
}

} // namespace tarvex::unit
