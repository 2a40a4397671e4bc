#include "survey/checks/checks.h"

#include <cstdlib>

namespace tarvex::survey
{

void CheckScale(const CheckedSurvey& checked)
{
    for (std::size_t i = 0; i < ColumnsOf(checked.survey); ++i) {
        const std::string name(kColumnNames[i]);
        std::vector<int> depths;
        for (const auto& row : checked.survey.rows)
            if (row.readings[i] && std::abs(row.readings[i]->counts) >= checked.limits.endOfScale)
                depths.push_back(row.depth);
        if (!depths.empty())
            checked.Report({"scale", Remedy::ReadAgain, name.substr(0, 1), depths,
                            name + " is at the end of its scale"});
    }
}

} // namespace tarvex::survey
