#include "survey/checks/verdict_text.h"

#include "survey/model/depths.h"
#include "survey/model/number_text.h"

#include <set>

namespace tarvex::survey
{

namespace
{
std::string FindingLine(const Finding& finding)
{
    std::string line = finding.check + ": ";
    if (!finding.depths.empty()) {
        const std::set<int> depths(finding.depths.begin(), finding.depths.end());
        line += DepthList(finding.depths, SmallestStep(depths)) + " m: ";
    }
    return line + finding.text + ChannelText(finding.channels) + "\n";
}

std::string FiguresLine(const SumFigures& figures)
{
    const auto& summary = figures.summary;
    auto line = figures.pair.Sum() + ": " + std::to_string(summary.count) + " sums, mean " +
                Decimals(summary.mean, 2) + ", standard deviation " +
                Decimals(summary.deviation, 2) + ", median " + Decimals(summary.median, 1) +
                ", median absolute deviation " + Decimals(summary.mad, 1);
    if (summary.count > 0)
        line += ", largest departure " + Decimals(figures.departure, 1) + " at " +
                Metres(figures.departureDepth) + " m";
    return line + "\n";
}
} // namespace

std::string TextOf(const Verdict& verdict)
{
    auto text = verdict.Line() + "\n";
    for (const auto& finding : verdict.findings)
        text += "  " + FindingLine(finding);
    text += "\n";
    for (const auto& figures : verdict.sums)
        text += FiguresLine(figures);
    for (const auto& note : verdict.notes)
        text += note + "\n";
    return text;
}

} // namespace tarvex::survey
