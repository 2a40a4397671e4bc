#include "survey/checks/check.h"

#include "survey/checks/checks.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace tarvex::survey
{

namespace
{
/// Empty memory of the unit reads as "-00000" in every column.
bool IsUnread(const Row& row, std::size_t columns)
{
    return std::all_of(row.readings.begin(),
                       row.readings.begin() + static_cast<std::ptrdiff_t>(columns),
                       [](const auto& reading) { return reading && reading->minusZero; });
}

/// The survey without the depths at which nothing was stored; those become a finding.
Survey WithoutUnread(const Survey& survey, Verdict& verdict)
{
    auto read = survey;
    const auto columns = ColumnsOf(survey);
    std::vector<int> unread;
    std::erase_if(read.rows, [&](const Row& row) {
        if (!IsUnread(row, columns)) return false;
        unread.push_back(row.depth);
        return true;
    });
    if (!unread.empty())
        verdict.findings.push_back({"unread", Remedy::ReadAgain, "AB", unread,
                                    "nothing was stored: every reading is the -00000 of empty "
                                    "memory"});
    return read;
}
} // namespace

void CheckedSurvey::Report(Finding finding) const
{
    for (auto& known : verdict.findings)
        if (known.check == finding.check && known.remedy == finding.remedy &&
            known.channels == finding.channels && known.text == finding.text &&
            !finding.depths.empty()) {
            std::vector<int> both;
            std::ranges::set_union(known.depths, finding.depths, std::back_inserter(both));
            known.depths = std::move(both);
            return;
        }
    verdict.findings.push_back(std::move(finding));
}

Verdict Check(const Survey& survey, const Limits& limits)
{
    Verdict verdict;
    const auto read = WithoutUnread(survey, verdict);
    const CheckedSurvey checked{read, limits, verdict, StepOf(survey)};
    CheckDepths(survey, checked);
    CheckReadings(survey, checked);
    CheckFiles(survey, checked);
    CheckFrozen(checked);
    CheckScale(checked);
    bool turned = true;
    for (const auto& pair : PairsOf(survey)) {
        const bool right = CheckPass(checked, pair);
        CheckSums(checked, pair, right);
        if (right) CheckSpikes(checked, pair);
        turned = turned && right;
    }
    if (HasFourGuides(survey) && turned) CheckPairs(checked);
    return verdict;
}

} // namespace tarvex::survey
