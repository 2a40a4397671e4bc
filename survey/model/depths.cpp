#include "survey/model/depths.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace tarvex::survey
{

namespace
{
constexpr int kHalfMetre = 5; // tenths
constexpr int kMetre = 10;
constexpr std::size_t kMostDepths = 240;
constexpr std::size_t kMostParts = 12;

/// With a step of half a metre the walk ends above 0.5 m; with a metre it ends above 0.
int ShallowestOf(int step)
{
    return step == kHalfMetre ? kHalfMetre : 1;
}
} // namespace

std::vector<int> ExpectedDepths(int depth, int step)
{
    std::vector<int> depths;
    for (int at = depth; at >= ShallowestOf(step) && depths.size() < kMostDepths;
         at -= std::max(step, 1))
        depths.push_back(at);
    std::ranges::reverse(depths);
    return depths;
}

bool IsCutAbove(const std::vector<int>& expected, int step)
{
    return !expected.empty() && expected.front() - step >= ShallowestOf(step);
}

std::string Metres(int tenths)
{
    const int size = std::abs(tenths);
    return (tenths < 0 ? "-" : "") + std::to_string(size / kMetre) + "." +
           std::to_string(size % kMetre);
}

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

int SmallestStep(const std::set<int>& depths)
{
    int step = 0;
    for (auto at = depths.begin(); at != depths.end() && std::next(at) != depths.end(); ++at) {
        const int distance = *std::next(at) - *at;
        if (step == 0 || distance < step) step = distance;
    }
    return step;
}

} // namespace tarvex::survey
