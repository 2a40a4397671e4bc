#include "survey/checks/checks.h"

namespace tarvex::survey
{

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

} // namespace tarvex::survey
