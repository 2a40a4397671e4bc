#include "unit/fill_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <string>

namespace tarvex::unit
{

namespace
{
constexpr std::uint32_t kMostTenths = 2000;

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

std::invalid_argument Refusal(const std::string& reason)
{
    return std::invalid_argument("fill: " + reason);
}

std::optional<std::uint32_t> WholeNumber(std::string_view text)
{
    std::uint32_t value = 0;
    const auto* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || rest != end) return std::nullopt;
    return value;
}

/// Tenths of a metre from metres; refusals name the setting.
std::uint32_t Tenths(std::string_view name, std::string_view metres)
{
    const auto point = metres.find('.');
    const auto tenth = point == std::string_view::npos ? "0" : metres.substr(point + 1);
    const auto whole = WholeNumber(metres.substr(0, point));
    const auto part = WholeNumber(tenth);
    if (!whole || !part || tenth.size() != 1 || *whole > kMostTenths / 10 ||
        *whole * 10 + *part > kMostTenths)
        throw Refusal(std::string(name) +
                      " is a number of metres up to 200, with at most one decimal");
    return *whole * 10 + *part;
}

/// Four digits of tenths from metres.
std::string DepthText(std::string_view metres)
{
    auto digits = std::to_string(Tenths("depth", metres));
    return digits.insert(0, 4 - digits.size(), '0');
}

std::string StepCode(std::string_view metres)
{
    if (metres == "0.5") return "0";
    if (metres == "1") return "1";
    throw Refusal("step is 0.5 or 1");
}

std::string Guides(std::string_view count)
{
    if (count == "2" || count == "4") return std::string(count);
    throw Refusal("guides is 2 or 4");
}

std::uint32_t Seed(std::string_view text)
{
    if (const auto seed = WholeNumber(text)) return *seed;
    throw Refusal("seed is a whole number");
}

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

/// A whole number up to `most`.
int Amount(std::string_view name, std::string_view text, std::uint32_t most)
{
    const auto amount = WholeNumber(text);
    if (amount && *amount <= most) return static_cast<int>(*amount);
    throw Refusal(std::string(name) + " is a whole number up to " + std::to_string(most));
}

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
        throw Refusal("no such setting: \"" + std::string(name) + "\"");
}

Survey UsualSurvey(int block)
{
    return {{"COMUNE", "PENDIO 1", 'T' + std::to_string(block), "0200", "0", "2", "+000", "01",
             "140426", "100000"},
            static_cast<std::uint32_t>(block)};
}
} // namespace

Fill ParseFill(std::string_view text)
{
    const auto colon = text.find(':');
    const auto block = WholeNumber(text.substr(0, colon));
    if (!block || *block < 1 || *block > static_cast<std::uint32_t>(kBlocks))
        throw Refusal("it starts with a block number, 1 to 30");
    Fill fill{static_cast<int>(*block), UsualSurvey(static_cast<int>(*block))};
    auto settings = colon == std::string_view::npos ? "" : text.substr(colon + 1);
    while (!settings.empty()) {
        const auto setting = settings.substr(0, settings.find(','));
        const auto equals = setting.find('=');
        if (equals == std::string_view::npos) throw Refusal("a setting is written NAME=VALUE");
        Set(fill.survey, setting.substr(0, equals), setting.substr(equals + 1));
        settings.remove_prefix(std::min(setting.size() + 1, settings.size()));
    }
    return fill;
}

} // namespace tarvex::unit
