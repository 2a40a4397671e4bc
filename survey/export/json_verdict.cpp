#include "survey/export/json_values.h"

#include <string_view>

namespace tarvex::survey
{

namespace
{
std::string_view NameOf(Remedy remedy)
{
    switch (remedy) {
    case Remedy::ReadAgain:
        return "read again";
    case Remedy::ReadAllAgain:
        return "read all again";
    case Remedy::DownloadAgain:
        return "download again";
    case Remedy::LookAtFiles:
        break;
    }
    return "look at the files";
}

Json FindingValue(const Finding& finding)
{
    return {{"check", finding.check},
            {"remedy", NameOf(finding.remedy)},
            {"channels", finding.channels},
            {"depths", DepthsValue(finding.depths)},
            {"text", finding.text}};
}

Json SumsValue(const SumFigures& figures)
{
    const auto& summary = figures.summary;
    return {{"pair", figures.pair.Sum()},
            {"count", summary.count},
            {"mean", summary.mean},
            {"deviation", summary.deviation},
            {"median", summary.median},
            {"mad", summary.mad},
            {"drift", figures.drift},
            {"departure", figures.departure},
            {"departureDepth", MetresValue(figures.departureDepth)},
            {"outliers", DepthsValue(figures.outliers)}};
}
} // namespace

Json Value(const Verdict& verdict)
{
    Json value{{"line", verdict.Line()},
               {"good", verdict.Good()},
               {"findings", Json::array()},
               {"sums", Json::array()},
               {"notes", verdict.notes}};
    for (const auto& finding : verdict.findings)
        value["findings"].push_back(FindingValue(finding));
    for (const auto& figures : verdict.sums)
        value["sums"].push_back(SumsValue(figures));
    return value;
}

} // namespace tarvex::survey
