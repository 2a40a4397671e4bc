#include "survey/comparison/same_tube.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvex::survey
{

namespace
{
/// The fields that make two heads those of one tube.
constexpr std::array<std::string_view, 3> kIdentity{"client", "site", "tube"};

std::string Unlike(std::string_view name, const std::string& is, const std::string& was)
{
    return "the " + std::string(name) + " is \"" + is + "\", that of the base \"" + was + "\"";
}

} // namespace

std::string OtherTube(const Survey& base, const Survey& now)
{
    if (base.head && now.head)
        for (const auto& field : kHeadFields) {
            if (std::ranges::find(kIdentity, field.name) == kIdentity.end()) continue;
            const auto& was = (*base.head).*(field.value);
            const auto& is = (*now.head).*(field.value);
            if (was != is) return Unlike(field.name, is, was);
        }
    if (HasFourGuides(base) != HasFourGuides(now))
        return "the number of guides differs from the base's";
    if (StepOf(base) != StepOf(now)) return "the step differs from the base's";
    return "";
}

} // namespace tarvex::survey
