#include "survey/export/json_values.h"

namespace tarvex::survey
{

Json MetresValue(int tenths)
{
    return static_cast<double>(tenths) / 10.0;
}

Json DepthsValue(const std::vector<int>& depths)
{
    auto value = Json::array();
    for (const int depth : depths)
        value.push_back(MetresValue(depth));
    return value;
}

std::string Printed(const Json& value)
{
    constexpr int kIndent = 2;
    return value.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace tarvex::survey
