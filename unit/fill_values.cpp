#include "unit/fill_values.h"

#include <charconv>

namespace tarvex::unit
{

namespace
{
constexpr std::uint32_t kMostTenths = 2000;
} // namespace

std::invalid_argument FillRefusal(const std::string& reason)
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

std::uint32_t Tenths(std::string_view name, std::string_view metres)
{
    const auto point = metres.find('.');
    const auto tenth = point == std::string_view::npos ? "0" : metres.substr(point + 1);
    const auto whole = WholeNumber(metres.substr(0, point));
    const auto part = WholeNumber(tenth);
    if (!whole || !part || tenth.size() != 1 || *whole > kMostTenths / 10 ||
        *whole * 10 + *part > kMostTenths)
        throw FillRefusal(std::string(name) +
                          " is a number of metres up to 200, with at most one decimal");
    return *whole * 10 + *part;
}

std::string DepthText(std::string_view metres)
{
    auto digits = std::to_string(Tenths("depth", metres));
    return digits.insert(0, 4 - digits.size(), '0');
}

std::string StepCode(std::string_view metres)
{
    if (metres == "0.5") return "0";
    if (metres == "1") return "1";
    throw FillRefusal("step is 0.5 or 1");
}

std::string Guides(std::string_view count)
{
    if (count == "2" || count == "4") return std::string(count);
    throw FillRefusal("guides is 2 or 4");
}

std::uint32_t Seed(std::string_view text)
{
    if (const auto seed = WholeNumber(text)) return *seed;
    throw FillRefusal("seed is a whole number");
}

int Amount(std::string_view name, std::string_view text, std::uint32_t most)
{
    const auto amount = WholeNumber(text);
    if (amount && *amount <= most) return static_cast<int>(*amount);
    throw FillRefusal(std::string(name) + " is a whole number up to " + std::to_string(most));
}

} // namespace tarvex::unit
