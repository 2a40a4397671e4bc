#include "survey/checks/verdict.h"

#include "survey/model/depths.h"

#include <algorithm>
#include <map>
#include <set>

namespace tarvex::survey
{

namespace
{
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
        text += DepthList({depths.begin(), depths.end()}, SmallestStep(depths)) + " m" +
                ChannelText(letters);
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
} // namespace

std::string ChannelText(const std::string& channels)
{
    if (channels.empty()) return "";
    return channels.size() > 1 ? " (A and B)" : " (" + channels + ")";
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

} // namespace tarvex::survey
