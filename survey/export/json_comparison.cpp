#include "survey/comparison/probe.h"
#include "survey/export/json_values.h"

#include <utility>

namespace tarvex::survey
{

namespace
{
Json PairValue(const ComparedPair& compared, const std::optional<Probe>& probe)
{
    auto rows = Json::array();
    for (std::size_t i = 0; i < compared.differences.size(); ++i) {
        Json row{{"depth", MetresValue(compared.differences[i].depth)},
                 {"difference", compared.differences[i].value},
                 {"sum", compared.cumulative[i].value}};
        if (probe) row["millimetres"] = Millimetres(compared.cumulative[i].value, *probe);
        rows.push_back(std::move(row));
    }
    return {{"pair", compared.pair.Difference()},
            {"opposite", compared.opposite},
            {"sumsChange", compared.SumsChange()},
            {"rows", std::move(rows)}};
}
} // namespace

Json Value(const Comparison& comparison, const std::optional<Probe>& probe)
{
    Json value{{"deeper", MetresValue(comparison.deeper)},
               {"pairs", Json::array()},
               {"notes", comparison.notes}};
    for (const auto& compared : comparison.pairs)
        value["pairs"].push_back(PairValue(compared, probe));
    return value;
}

} // namespace tarvex::survey
