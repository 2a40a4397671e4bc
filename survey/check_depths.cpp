#include "survey/checks.h"

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

void CheckReadings(const Survey& whole, const CheckedSurvey& checked)
{
    for (const char channel : {'A', 'B'}) {
        std::vector<int> depths;
        for (const auto& row : whole.rows)
            for (std::size_t i = 0; i < ColumnsOf(whole); ++i)
                if (kColumnNames[i].front() == channel && !row.readings[i] &&
                    (depths.empty() || depths.back() != row.depth))
                    depths.push_back(row.depth);
        if (!depths.empty())
            checked.Report({"readings", Remedy::DownloadAgain, std::string(1, channel), depths,
                            "a reading is missing or is none"});
    }
}

void CheckFiles(const Survey& whole, const CheckedSurvey& checked)
{
    for (const auto& anomaly : whole.anomalies) {
        const auto text =
            anomaly.file + ", record " + std::to_string(anomaly.record) + ": " + anomaly.text;
        if (anomaly.harmless)
            checked.verdict.notes.push_back(text);
        else
            checked.Report({"files", Remedy::LookAtFiles, "", {}, text});
    }
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
                        "no step of a tube of " + Metres(depth) + " m falls there"});
    if (expected.empty() && present.empty())
        checked.Report({"depths", Remedy::LookAtFiles, "", {}, "the survey holds no depth at all"});
    if (!expected.empty() && expected.front() > 2 * checked.step)
        checked.verdict.notes.push_back(
            "the unit holds 240 depths a block: nothing is read above " + Metres(expected.front()) +
            " m");
    CheckReadings(whole, checked);
    CheckFiles(whole, checked);
}

} // namespace tarvex::survey
