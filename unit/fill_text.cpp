#include "unit/fill_text.h"

#include "unit/fill_settings.h"
#include "unit/fill_values.h"

#include <algorithm>
#include <string>

namespace tarvex::unit
{

namespace
{
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
        throw FillRefusal("it starts with a block number, 1 to 30");
    Fill fill{static_cast<int>(*block), UsualSurvey(static_cast<int>(*block))};
    auto settings = colon == std::string_view::npos ? "" : text.substr(colon + 1);
    while (!settings.empty()) {
        const auto setting = settings.substr(0, settings.find(','));
        const auto equals = setting.find('=');
        if (equals == std::string_view::npos) throw FillRefusal("a setting is written NAME=VALUE");
        Set(fill.survey, setting.substr(0, equals), setting.substr(equals + 1));
        settings.remove_prefix(std::min(setting.size() + 1, settings.size()));
    }
    return fill;
}

} // namespace tarvex::unit
