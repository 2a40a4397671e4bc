#include "survey/checks/checks.h"

#include "survey/model/number_text.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tarvex::survey
{

namespace
{
/// How far each half difference is off the line between its neighbours.
Series LeapsOf(const Series& halves, int step)
{
    Series leaps;
    for (std::size_t i = 1; i + 1 < halves.size(); ++i)
        if (halves[i - 1].depth + step == halves[i].depth &&
            halves[i].depth + step == halves[i + 1].depth)
            leaps.push_back({halves[i].depth,
                             halves[i].value - (halves[i - 1].value + halves[i + 1].value) / 2});
    return leaps;
}
} // namespace

void CheckSpikes(const CheckedSurvey& checked, const Pair& pair)
{
    auto leaps = LeapsOf(HalfDifferencesOf(checked.survey, pair), checked.step);
    const auto summary = SummaryOf(ValuesOf(leaps));
    const double reach =
        std::max(checked.limits.spike * summary.RobustDeviation(), checked.limits.spikeFloor);
    std::ranges::stable_sort(leaps, std::ranges::greater{},
                             [](const Point& leap) { return std::abs(leap.value); });
    // A spike makes its neighbours leap too, half as far: the highest comes first and takes
    // them with it.
    std::set<int> taken;
    for (const auto& leap : leaps) {
        if (std::abs(leap.value) <= reach) break;
        if (!taken.contains(leap.depth - checked.step) &&
            !taken.contains(leap.depth + checked.step))
            taken.insert(leap.depth);
    }
    if (taken.empty()) return;
    checked.Report({"spike",
                    Remedy::ReadAgain,
                    std::string(1, pair.channel),
                    {taken.begin(), taken.end()},
                    "the half difference " + pair.Difference() + " is " +
                        (taken.size() > 1 ? "up to " : "") + Decimals(leaps.front().value, 2) +
                        " counts off its neighbours"});
}

} // namespace tarvex::survey
