#include "survey/json_values.h"

#include "survey/text.h"

namespace tarvex::survey
{

namespace
{
Json RowValue(const Row& row, std::size_t columns)
{
    Json value{{"depth", MetresValue(row.depth)}};
    for (std::size_t i = 0; i < columns; ++i) {
        auto& cell = value[std::string(kColumnNames[i])];
        if (row.readings[i]) cell = row.readings[i]->counts;
    }
    return value;
}

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

Json DepthsValue(const std::vector<int>& depths)
{
    auto value = Json::array();
    for (const int depth : depths)
        value.push_back(MetresValue(depth));
    return value;
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

Json MetresValue(int tenths)
{
    return static_cast<double>(tenths) / 10.0;
}

Json Value(const Head& head)
{
    Json value;
    for (const auto& field : kHeadFields)
        value[std::string(field.name)] = head.*(field.value);
    return value;
}

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

Json Value(const Comparison& comparison, const std::optional<Probe>& probe)
{
    Json value{{"deeper", MetresValue(comparison.deeper)},
               {"pairs", Json::array()},
               {"notes", comparison.notes}};
    for (const auto& compared : comparison.pairs)
        value["pairs"].push_back(PairValue(compared, probe));
    return value;
}

Json Value(const Anomaly& anomaly)
{
    return {{"file", anomaly.file},
            {"record", anomaly.record},
            {"offset", anomaly.offset},
            {"text", anomaly.text},
            {"harmless", anomaly.harmless}};
}

Json Value(const Survey& survey)
{
    Json value;
    value["files"] = Json::array();
    for (const auto& file : survey.files)
        value["files"].push_back(Readable(file, Encoding::Utf8));
    value["head"] = survey.head ? Value(*survey.head) : Json();
    value["unfinished"] = survey.unfinished;
    value["rows"] = Json::array();
    for (const auto& row : survey.rows)
        value["rows"].push_back(RowValue(row, ColumnsOf(survey)));
    value["anomalies"] = Json::array();
    for (const auto& anomaly : survey.anomalies)
        value["anomalies"].push_back(Value(anomaly));
    return value;
}

std::string Printed(const Json& value)
{
    constexpr int kIndent = 2;
    return value.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace tarvex::survey
