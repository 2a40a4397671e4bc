#include "unit/fill_settings.h"

#include "unit/fill_values.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace tarvex::unit
{

namespace
{
struct TextSetting {
    std::string_view name;
    std::string BlockHeader::*field;
};

constexpr std::array<TextSetting, 7> kTextSettings{{
    {"client", &BlockHeader::client},
    {"site", &BlockHeader::site},
    {"tube", &BlockHeader::tube},
    {"north", &BlockHeader::north},
    {"nlet", &BlockHeader::readout},
    {"date", &BlockHeader::date},
    {"time", &BlockHeader::time},
}};

struct DepthSetting {
    std::string_view name;
    std::optional<int> Mishaps::*depth;
};

constexpr std::array<DepthSetting, 4> kDepthSettings{{
    {"frozen", &Mishaps::frozen},
    {"spike", &Mishaps::spike},
    {"swapped", &Mishaps::swapped},
    {"unread", &Mishaps::unread},
}};

/// Whether the setting is one of a mishap.
bool SetMishap(Mishaps& mishaps, std::string_view name, std::string_view value)
{
    constexpr std::uint32_t kMostDrift = 1000;
    constexpr std::uint32_t kMostReadouts = 25;
    const auto* const depth = std::ranges::find(kDepthSettings, name, &DepthSetting::name);
    if (depth != kDepthSettings.end())
        mishaps.*(depth->depth) = static_cast<int>(Tenths(name, value));
    else if (name == "unturned")
        mishaps.unturned = Amount(name, value, 1) == 1;
    else if (name == "drift")
        mishaps.drift = Amount(name, value, kMostDrift);
    else if (name == "moved")
        mishaps.moved = Amount(name, value, kMostReadouts);
    else
        return false;
    return true;
}
} // namespace

void Set(Survey& survey, std::string_view name, std::string_view value)
{
    const auto* const text = std::ranges::find(kTextSettings, name, &TextSetting::name);
    if (text != kTextSettings.end())
        survey.header.*(text->field) = value;
    else if (name == "depth")
        survey.header.depth = DepthText(value);
    else if (name == "step")
        survey.header.step = StepCode(value);
    else if (name == "guides")
        survey.header.guides = Guides(value);
    else if (name == "seed")
        survey.seed = Seed(value);
    else if (!SetMishap(survey.mishaps, name, value))
        throw FillRefusal("no such setting: \"" + std::string(name) + "\"");
}

} // namespace tarvex::unit
