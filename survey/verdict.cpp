#include "survey/verdict.h"

#include "survey/number_text.h"

#include <algorithm>
#include <map>
#include <set>

namespace tarvex::survey
{

namespace
{
constexpr std::size_t kMostParts = 12;

std::string ChannelText(const std::string& channels)
{
    if (channels.empty()) return "";
    return channels.size() > 1 ? " (A and B)" : " (" + channels + ")";
}

/// The smallest distance of two depths: what a run is made of.
int StepIn(const std::set<int>& depths)
{
    int step = 0;
    for (auto at = depths.begin(); at != depths.end() && std::next(at) != depths.end(); ++at) {
        const int distance = *std::next(at) - *at;
        if (step == 0 || distance < step) step = distance;
    }
    return step;
}

/// Depths by what is wrong with them: in A, in B, in both.
std::string DepthsByChannel(const std::vector<Finding>& findings, Remedy remedy)
{
    std::map<int, std::set<char>> channels;
    for (const auto& finding : findings)
        if (finding.remedy == remedy)
            for (const int depth : finding.depths)
                channels[depth].insert(finding.channels.begin(), finding.channels.end());
    std::map<std::string, std::set<int>> byChannels;
    for (const auto& [depth, letters] : channels)
        byChannels[std::string(letters.begin(), letters.end())].insert(depth);
    std::string text;
    for (const auto& [letters, depths] : byChannels) {
        if (!text.empty()) text += ", ";
        text +=
            DepthList({depths.begin(), depths.end()}, StepIn(depths)) + " m" + ChannelText(letters);
    }
    return text;
}

/// The channels of all findings with that remedy.
std::string ChannelsOf(const std::vector<Finding>& findings, Remedy remedy)
{
    std::set<char> letters;
    for (const auto& finding : findings)
        if (finding.remedy == remedy)
            letters.insert(finding.channels.begin(), finding.channels.end());
    return {letters.begin(), letters.end()};
}

bool Has(const std::vector<Finding>& findings, Remedy remedy)
{
    return std::ranges::find(findings, remedy, &Finding::remedy) != findings.end();
}

std::string FindingLine(const Finding& finding)
{
    std::string line = finding.check + ": ";
    if (!finding.depths.empty()) {
        const std::set<int> depths(finding.depths.begin(), finding.depths.end());
        line += DepthList(finding.depths, StepIn(depths)) + " m: ";
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

std::string DepthList(const std::vector<int>& depths, int step)
{
    constexpr std::size_t kShortestRun = 3;
    std::vector<std::string> parts;
    for (std::size_t i = 0; i < depths.size();) {
        std::size_t end = i + 1;
        while (end < depths.size() && step > 0 && depths[end] == depths[end - 1] + step)
            ++end;
        if (end - i >= kShortestRun) {
            parts.push_back(Metres(depths[i]) + " to " + Metres(depths[end - 1]));
            i = end;
        } else {
            parts.push_back(Metres(depths[i++]));
        }
    }
    std::string text;
    for (std::size_t i = 0; i < std::min(parts.size(), kMostParts); ++i)
        text += (i > 0 ? ", " : "") + parts[i];
    if (parts.size() > kMostParts)
        text += " and " + std::to_string(parts.size() - kMostParts) + " more places to " +
                Metres(depths.back());
    return text;
}

std::string Verdict::Line() const
{
    if (Good()) return "good";
    std::vector<std::string> parts;
    if (Has(findings, Remedy::ReadAllAgain))
        parts.push_back("read all depths again" +
                        ChannelText(ChannelsOf(findings, Remedy::ReadAllAgain)));
    if (const auto depths = DepthsByChannel(findings, Remedy::ReadAgain); !depths.empty())
        parts.push_back("read again at " + depths);
    if (const auto depths = DepthsByChannel(findings, Remedy::DownloadAgain); !depths.empty())
        parts.push_back("download again for " + depths);
    if (Has(findings, Remedy::LookAtFiles))
        parts.push_back("look at the files: they are not as they were written");
    std::string line;
    for (const auto& part : parts)
        line += (line.empty() ? "" : "; ") + part;
    return line;
}

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
