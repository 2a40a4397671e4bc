#include "survey/checks/checks.h"

#include <string>
#include <utility>
#include <vector>

namespace tarvex::survey
{

namespace
{
/// The anomalies of one kind, the first few by themselves: the rest would bury the other findings.
std::vector<std::string> TextsOf(const Survey& survey, bool harmless)
{
    constexpr std::size_t kMost = 4;
    std::vector<std::string> texts;
    for (const auto& anomaly : survey.anomalies)
        if (anomaly.harmless == harmless)
            texts.push_back(anomaly.file + ", record " + std::to_string(anomaly.record) + ": " +
                            anomaly.text);
    if (texts.size() <= kMost + 1) return texts;
    const auto more = texts.size() - kMost;
    texts.resize(kMost);
    texts.push_back("and " + std::to_string(more) + R"( more that "show" lists)");
    return texts;
}
} // namespace

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
                            "a reading is missing or is not a number"});
    }
}

void CheckFiles(const Survey& whole, const CheckedSurvey& checked)
{
    for (auto& text : TextsOf(whole, true))
        checked.verdict.notes.push_back(std::move(text));
    for (auto& text : TextsOf(whole, false))
        checked.Report({"files", Remedy::LookAtFiles, "", {}, std::move(text)});
}

} // namespace tarvex::survey
