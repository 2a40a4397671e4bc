#include "unit/faults.h"

#include <algorithm>
#include <cctype>

namespace tarvex::unit
{

namespace
{
constexpr char kStray = '?';
constexpr std::size_t kPairSpacing = 3; // two digits and a separator

/// What is left of a healthy answer, and what happens around it.
struct Outcome {
    Time after{0};
    std::string bytes;
    std::vector<Reply> following;
};

std::string Garbled(std::string answer, const std::optional<std::size_t>& pair)
{
    const auto first = pair.value_or(0) * kPairSpacing;
    const auto end = pair ? first + kPairSpacing : answer.size();
    for (auto i = first; i < end && i < answer.size(); ++i)
        if (std::isxdigit(static_cast<unsigned char>(answer[i])) != 0) answer[i] = kStray;
    return answer;
}

std::string LowerCase(std::string answer)
{
    std::ranges::transform(answer, answer.begin(), [](char c) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    });
    return answer;
}

Time Milliseconds(std::size_t count)
{
    return std::chrono::milliseconds{static_cast<std::chrono::milliseconds::rep>(count)};
}

std::string Spoiled(const Fault& fault, const std::string& answer)
{
    switch (fault.trouble) {
    case Trouble::Silent:
        return {};
    case Trouble::Wrong:
        return fault.text;
    case Trouble::Double:
        return answer + answer;
    case Trouble::Short:
        return answer.substr(0, fault.amount.value_or(std::max<std::size_t>(answer.size(), 1) - 1));
    case Trouble::Long:
        return answer + std::string(fault.amount.value_or(1), kStray);
    case Trouble::Garbled:
        return Garbled(answer, fault.amount);
    case Trouble::Lower:
        return LowerCase(answer);
    case Trouble::Shifted:
        return kStray + answer;
    case Trouble::HangUp:
        return answer.substr(0, fault.amount.value_or(0));
    case Trouble::Late:
    case Trouble::Stray:
        break;
    }
    return answer;
}

void Apply(const Fault& fault, Outcome& outcome)
{
    outcome.bytes = Spoiled(fault, outcome.bytes);
    if (fault.trouble == Trouble::Late)
        outcome.after += Milliseconds(fault.amount.value_or(kUsualDelay));
    if (fault.trouble == Trouble::Stray)
        outcome.following.push_back(
            {Milliseconds(fault.amount.value_or(kUsualStrayDelay)), {kStray}, false});
    // A terminal that is hung up takes unread bytes with it: those before get the time to arrive.
    if (fault.trouble == Trouble::HangUp)
        outcome.following.push_back({outcome.bytes.empty() ? Time{0} : kHangUpPause, {}, true});
}

bool Applies(const Fault& fault, Moment moment, int count)
{
    return fault.moment == moment &&
           (fault.number == count || (fault.andLater && fault.number < count));
}
} // namespace

std::vector<Reply> ApplyFaults(const std::vector<Fault>& faults, Moment moment, int count,
                               std::string_view answer)
{
    Outcome outcome{Time{0}, std::string(answer), {}};
    for (const auto& fault : faults)
        if (Applies(fault, moment, count)) Apply(fault, outcome);
    auto replies = std::move(outcome.following);
    if (!outcome.bytes.empty())
        replies.insert(replies.begin(), {outcome.after, outcome.bytes, false});
    return replies;
}

} // namespace tarvex::unit
