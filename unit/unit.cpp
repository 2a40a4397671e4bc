#include "unit/unit.h"

#include "unit/block_header.h"
#include "unit/hexadecimal.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace tarvex::unit
{

namespace
{
constexpr std::size_t kHead = 6; // the letter and five address digits

std::optional<std::uint32_t> FrameAddress(std::string_view frame)
{
    return frame.size() < kHead ? std::nullopt : AddressOf(frame.substr(1, kHead - 1));
}
} // namespace

Unit::Unit(Memory memory, std::vector<Fault> faults)
    : memory_(std::move(memory)), faults_(std::move(faults))
{
}

void Unit::SetListener(Listener listener)
{
    listener_ = std::move(listener);
}

std::vector<Reply> Unit::Feed(std::string_view bytes, Time now)
{
    std::vector<Reply> replies;
    for (const char byte : bytes) {
        if (gone_) break;
        for (const auto& heard : reader_.Take(byte, now)) {
            if (listener_) listener_(heard, now);
            std::ranges::move(React(heard, now), std::back_inserter(replies));
        }
    }
    return replies;
}

std::vector<Reply> Unit::React(const Heard& heard, Time now)
{
    switch (heard.kind) {
    case Heard::Kind::Wake:
        return Wake();
    case Heard::Kind::Frame:
        return Answer(heard.bytes, now);
    case Heard::Kind::Noise:
        break;
    }
    return {};
}

std::vector<Reply> Unit::Wake()
{
    auto replies = At(Moment::Woken, "!");
    if (replies.empty()) reader_.Sleep();
    return replies;
}

std::vector<Reply> Unit::Answer(std::string_view frame, Time now)
{
    if (frame.front() == 'a') return ReadPage(frame);
    if (frame == "H") return At(Moment::ClockRead, clock_.Read(now) + "\r\n");
    if (frame.front() == 'H') return {};
    Store(frame, now);
    return At(Moment::Written, "");
}

std::vector<Reply> Unit::ReadPage(std::string_view frame)
{
    const auto address = FrameAddress(frame);
    if (!address || frame.size() != kHead) return {};
    return At(Moment::PageRead, PageText(memory_.PageAt(*address)));
}

void Unit::Store(std::string_view frame, Time now)
{
    if (frame == "c") return clock_.Start(now);
    if (frame.front() == 'G') return static_cast<void>(clock_.Set(frame.substr(1), now));
    const auto address = FrameAddress(frame);
    if (!address) return;
    const auto payload = frame.substr(kHead);
    switch (frame.front()) {
    case 'C':
        return SpreadFields(memory_, *address, kHeaderPlaces, payload);
    case 'D':
        return SpreadFields(memory_, *address, kCalibrationPlaces, payload);
    case 'b':
        // With a zero byte at its end: else a shorter value would keep the last digits of a longer
        // one.
        return memory_.Put(*address, std::string(payload) + '\0');
    default:
        return;
    }
}

std::vector<Reply> Unit::At(Moment moment, std::string_view answer)
{
    const int count = ++counts_[static_cast<std::size_t>(moment)];
    auto replies = ApplyFaults(faults_, moment, count, answer);
    gone_ = std::ranges::any_of(replies, &Reply::hangUp);
    return replies;
}

} // namespace tarvex::unit
