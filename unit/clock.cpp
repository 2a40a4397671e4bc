#include "unit/clock.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tarvex::unit
{

namespace
{
using namespace std::chrono;

constexpr std::size_t kPairs = 6;
constexpr int kFirstYear = 2000;

std::optional<std::array<unsigned, kPairs>> PairsOf(std::string_view digits)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (digits.size() != 2 * kPairs || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    std::array<unsigned, kPairs> pairs{};
    for (std::size_t i = 0; i < kPairs; ++i)
        pairs[i] = static_cast<unsigned>((digits[2 * i] - '0') * 10 + (digits[2 * i + 1] - '0'));
    return pairs;
}

std::optional<sys_seconds> MomentOf(std::string_view digits)
{
    const auto pairs = PairsOf(digits);
    if (!pairs) return std::nullopt;
    const auto [yy, mm, dd, hour, minute, second] = *pairs;
    const year_month_day date{year{kFirstYear + static_cast<int>(yy)}, month{mm}, day{dd}};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return sys_days{date} + hours{hour} + minutes{minute} + seconds{second};
}

std::string Pair(unsigned value)
{
    return {static_cast<char>('0' + value / 10 % 10), static_cast<char>('0' + value % 10)};
}
} // namespace

bool Clock::Set(std::string_view digits, Time now)
{
    const auto moment = MomentOf(digits);
    if (!moment) return false;
    set_ = *moment;
    setAt_ = now;
    return true;
}

void Clock::Start(Time now)
{
    if (running_) return;
    setAt_ = now;
    running_ = true;
}

void Clock::Stop(Time now)
{
    set_ = TimeAt(now);
    setAt_ = now;
    running_ = false;
}

std::string Clock::Read(Time now) const
{
    const auto moment = TimeAt(now);
    const auto midnight = floor<days>(moment);
    const year_month_day date{midnight};
    const hh_mm_ss time{moment - midnight};
    return Pair(static_cast<unsigned>(static_cast<int>(date.year()) - kFirstYear)) +
           Pair(static_cast<unsigned>(date.month())) + Pair(static_cast<unsigned>(date.day())) +
           Pair(static_cast<unsigned>(time.hours().count())) +
           Pair(static_cast<unsigned>(time.minutes().count())) +
           Pair(static_cast<unsigned>(time.seconds().count()));
}

sys_seconds Clock::TimeAt(Time now) const
{
    return running_ ? set_ + floor<seconds>(now - setAt_) : set_;
}

} // namespace tarvex::unit
