#include "survey/survey.h"

#include "survey/text.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace tarvex::survey
{

namespace
{
constexpr int kHalfMetre = 5;
constexpr int kMetre = 10;
constexpr int kMostDepths = 240;
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

std::vector<int> ExpectedDepths(int depth, int step)
{
    // With a step of half a metre the walk ends above 0.5 m; with a metre it ends above 0.
    const int last = step == kHalfMetre ? kHalfMetre : 1;
    std::vector<int> depths;
    for (int at = depth; at >= last && depths.size() < kMostDepths; at -= std::max(step, 1))
        depths.push_back(at);
    std::ranges::reverse(depths);
    return depths;
}

std::string Metres(int tenths)
{
    const int size = std::abs(tenths);
    return (tenths < 0 ? "-" : "") + std::to_string(size / kMetre) + "." +
           std::to_string(size % kMetre);
}

} // namespace tarvex::survey
