#include "unit/conversation.h"

#include "unit/escape.h"

#include <string_view>

namespace tarvex::unit
{

namespace
{
constexpr std::size_t kSecondsWidth = 6;
constexpr std::size_t kDecimals = 6;
constexpr std::int64_t kMicroseconds = 1'000'000;

std::string RightAligned(std::int64_t number, std::size_t width, char fill)
{
    auto digits = std::to_string(number);
    return digits.insert(0, digits.size() < width ? width - digits.size() : 0, fill);
}

std::string Line(Time at, std::string_view speaker, std::string_view text)
{
    return RightAligned(at.count() / kMicroseconds, kSecondsWidth, ' ') + "." +
           RightAligned(at.count() % kMicroseconds, kDecimals, '0') + "  " + std::string(speaker) +
           "  " + std::string(text);
}
} // namespace

std::string LineOf(const Heard& heard, Time at)
{
    const auto text = Escape(heard.bytes);
    switch (heard.kind) {
    case Heard::Kind::Frame:
        return Line(at, "manager", text + "\\r");
    case Heard::Kind::Noise:
        return Line(at, "manager", text + "  (passed over)");
    case Heard::Kind::Wake:
        break;
    }
    return Line(at, "manager", text);
}

std::string LineOf(const Reply& reply, Time at)
{
    return Line(at, "unit   ", reply.hangUp ? "(hang-up)" : Escape(reply.bytes));
}

} // namespace tarvex::unit
