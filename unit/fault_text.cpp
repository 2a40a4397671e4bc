#include "unit/escape.h"
#include "unit/faults.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
enum class Argument { None, Amount, Text };

struct TroubleName {
    std::string_view name;
    Trouble trouble;
    std::string_view moments; ///< initials of the moments at which it can happen
    Argument argument;
    std::size_t limit; ///< greatest amount
};

constexpr std::size_t kMostMilliseconds = 600'000;

constexpr std::array<TroubleName, 11> kTroubles{{
    {"silent", Trouble::Silent, "wpc", Argument::None, 0},
    {"wrong", Trouble::Wrong, "wpc", Argument::Text, 0},
    {"double", Trouble::Double, "wpc", Argument::None, 0},
    {"late", Trouble::Late, "wpc", Argument::Amount, kMostMilliseconds},
    {"short", Trouble::Short, "pc", Argument::Amount, 50},
    {"long", Trouble::Long, "wpc", Argument::Amount, 1000},
    {"garbled", Trouble::Garbled, "p", Argument::Amount, 15},
    {"lower", Trouble::Lower, "p", Argument::None, 0},
    {"shifted", Trouble::Shifted, "wpc", Argument::None, 0},
    {"stray", Trouble::Stray, "wpcW", Argument::Amount, kMostMilliseconds},
    {"hangup", Trouble::HangUp, "wpcW", Argument::Amount, 50},
}};

struct MomentName {
    std::string_view name;
    Moment moment;
    char initial;
};

constexpr std::array<MomentName, 4> kMoments{{
    {"wake", Moment::Woken, 'w'},
    {"page", Moment::PageRead, 'p'},
    {"clock", Moment::ClockRead, 'c'},
    {"write", Moment::Written, 'W'},
}};

[[noreturn]] void Refuse(std::string_view text, std::string_view reason)
{
    throw std::invalid_argument("fault \"" + std::string(text) + "\": " + std::string(reason));
}

/// A whole number at the start of `text`, which it is taken from; nothing when there is none.
std::optional<std::size_t> TakeNumber(std::string_view& text)
{
    std::size_t value = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return value;
}

/// Takes `mark` from the start of `text`; false when it is not there.
bool TakeMark(std::string_view& text, char mark)
{
    if (text.empty() || text.front() != mark) return false;
    text.remove_prefix(1);
    return true;
}

const TroubleName& FindTrouble(std::string_view whole, std::string_view name)
{
    const auto* const found = std::ranges::find(kTroubles, name, &TroubleName::name);
    if (found == kTroubles.end())
        Refuse(whole, "no such trouble; there are silent, wrong, double, late, short, long, "
                      "garbled, lower, shifted, stray and hangup");
    return *found;
}

const MomentName& TakeMoment(std::string_view whole, std::string_view& rest)
{
    const auto* const found = std::ranges::find_if(
        kMoments, [&](const MomentName& moment) { return rest.starts_with(moment.name); });
    if (found == kMoments.end())
        Refuse(whole, "no such moment; there are wake, page, clock and write");
    rest.remove_prefix(found->name.size());
    return *found;
}

void TakeArgument(std::string_view whole, std::string_view rest, const TroubleName& trouble,
                  Fault& fault)
{
    if (trouble.argument == Argument::Text) {
        fault.text = Unescape(rest);
        return;
    }
    if (trouble.argument == Argument::None) Refuse(whole, "this trouble takes no amount");
    fault.amount = TakeNumber(rest);
    if (!fault.amount || !rest.empty() || *fault.amount > trouble.limit)
        Refuse(whole, "the amount is a number up to " + std::to_string(trouble.limit));
}
} // namespace

Fault ParseFault(std::string_view text)
{
    const auto at = text.find('@');
    if (at == std::string_view::npos) Refuse(text, "it is written TROUBLE@MOMENTn");
    const auto& trouble = FindTrouble(text, text.substr(0, at));
    auto rest = text.substr(at + 1);
    const auto& moment = TakeMoment(text, rest);
    if (trouble.moments.find(moment.initial) == std::string_view::npos)
        Refuse(text, "this trouble cannot happen at this moment");

    Fault fault{trouble.trouble, moment.moment};
    if (trouble.argument == Argument::Text) fault.text = '?';
    const auto number = TakeNumber(rest);
    if (!number || *number < 1 || *number > 1'000'000) Refuse(text, "the moments count from 1");
    fault.number = static_cast<int>(*number);
    fault.andLater = TakeMark(rest, '+');
    if (TakeMark(rest, ':'))
        TakeArgument(text, rest, trouble, fault);
    else if (!rest.empty())
        Refuse(text, "only \"+\" and \":\" with an amount may follow the number");
    return fault;
}

} // namespace tarvex::unit
