#include "survey/export/json_values.h"

#include "survey/model/readable.h"

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
} // namespace

Json Value(const Head& head)
{
    Json value;
    for (const auto& field : kHeadFields)
        value[std::string(field.name)] = head.*(field.value);
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

} // namespace tarvex::survey
