#include "survey/model/survey.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <map>

namespace tarvex::survey
{

namespace
{
constexpr int kHalfMetre = 5; // tenths
constexpr int kMetre = 10;
} // namespace

int StepOf(const Survey& survey)
{
    if (survey.head && !survey.head->step.empty())
        return survey.head->step == "0" ? kHalfMetre : kMetre;
    std::map<int, int> distances;
    for (std::size_t i = 1; i < survey.rows.size(); ++i)
        ++distances[survey.rows[i].depth - survey.rows[i - 1].depth];
    const auto most =
        std::ranges::max_element(distances, {}, [](const auto& entry) { return entry.second; });
    return most == distances.end() ? kHalfMetre : most->first;
}

int DepthOf(const Survey& survey)
{
    if (survey.head) {
        if (const auto depth = TenthsOf(survey.head->depth)) return *depth;
    }
    return survey.rows.empty() ? 0 : survey.rows.back().depth;
}

bool HasFourGuides(const Survey& survey)
{
    if (survey.head && (survey.head->guides == "2" || survey.head->guides == "4"))
        return survey.head->guides == "4";
    return std::ranges::any_of(survey.rows, [](const Row& row) {
        return row.At(Column::A2) || row.At(Column::B2) || row.At(Column::A4) || row.At(Column::B4);
    });
}

std::size_t ColumnsOf(const Survey& survey)
{
    return HasFourGuides(survey) ? kColumns : kColumns / 2;
}

} // namespace tarvex::survey
