#include "survey/checks/checks.h"

#include "survey/model/depths.h"

#include <algorithm>
#include <iterator>

namespace tarvex::survey
{

namespace
{
std::vector<int> DepthsOf(const Survey& survey)
{
    std::vector<int> depths;
    for (const auto& row : survey.rows)
        depths.push_back(row.depth);
    return depths;
}

std::vector<int> Without(const std::vector<int>& from, const std::vector<int>& what)
{
    std::vector<int> rest;
    std::ranges::set_difference(from, what, std::back_inserter(rest));
    return rest;
}

std::string MissingText(const Survey& survey, std::size_t count)
{
    if (survey.unfinished)
        return "the download broke off: " + std::to_string(count) + " depths are missing";
    return count == 1 ? "this depth is missing" : "these depths are missing";
}
} // namespace

void CheckDepths(const Survey& whole, const CheckedSurvey& checked)
{
    const int depth = DepthOf(whole);
    const auto expected = ExpectedDepths(depth, checked.step);
    const auto present = DepthsOf(whole);
    if (const auto missing = Without(expected, present); !missing.empty())
        checked.Report(
            {"depths", Remedy::DownloadAgain, "AB", missing, MissingText(whole, missing.size())});
    if (const auto extra = Without(present, expected); !extra.empty())
        checked.Report({"depths", Remedy::LookAtFiles, "AB", extra,
                        "not one of the steps of a tube of " + Metres(depth) + " m"});
    if (expected.empty() && present.empty())
        checked.Report({"depths", Remedy::LookAtFiles, "", {}, "the survey holds no depth at all"});
    if (IsCutAbove(expected, checked.step))
        checked.verdict.notes.push_back(
            "the unit holds 240 depths a block: nothing is read above " + Metres(expected.front()) +
            " m");
}

} // namespace tarvex::survey
