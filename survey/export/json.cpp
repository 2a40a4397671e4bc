#include "survey/export/json.h"

#include "survey/export/json_values.h"
#include "survey/files/report_names.h"

namespace tarvex::survey
{

std::string JsonOf(const Survey& survey)
{
    return Printed(Value(survey));
}

std::string JsonOf(const Survey& survey, const Verdict& verdict)
{
    auto value = Value(survey);
    value["verdict"] = Value(verdict);
    return Printed(value);
}

std::string JsonOf(const Verdict& verdict)
{
    return Printed(Value(verdict));
}

std::string JsonOf(const Comparison& comparison, const std::optional<Probe>& probe)
{
    return Printed(Value(comparison, probe));
}

std::string JsonOf(const std::vector<ListedSurvey>& surveys)
{
    auto list = Json::array();
    for (const auto& listed : surveys)
        list.push_back({{"path", Shown(listed.path)},
                        {"head", Value(listed.head)},
                        {"hasHead", listed.hasHead},
                        {"hasData", listed.hasData}});
    return Printed(list);
}

} // namespace tarvex::survey
