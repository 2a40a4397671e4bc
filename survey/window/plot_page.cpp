#include "survey/window/plot_page.h"

#include "survey/checks/check.h"
#include "survey/window/plot_curves.h"

#include <algorithm>
#include <iterator>

namespace tarvex::survey
{

namespace
{
std::optional<std::pair<double, double>> LimitsOf(const Verdict& verdict, char channel,
                                                  const Limits& limits)
{
    for (const auto& figures : verdict.sums)
        if (figures.pair.channel == channel && figures.summary.count > 0) {
            const double reach =
                std::max(limits.outlier * figures.summary.RobustDeviation(), limits.outlierFloor);
            return std::pair(figures.summary.median - reach, figures.summary.median + reach);
        }
    return std::nullopt;
}

std::string TitleOf(PlotKind kind, char channel)
{
    switch (kind) {
    case PlotKind::Readings:
        return std::string(1, channel) + ": readings, counts";
    case PlotKind::HalfDifferences:
        return std::string(1, channel) + ": half differences, counts";
    case PlotKind::Sums:
        return std::string(1, channel) + ": sums, counts";
    case PlotKind::Change:
        break;
    }
    return std::string(1, channel) + ": sum of change, counts";
}

/// What else is a line at zero, which could be taken for a tube that does not move.
bool IsBaseAlone(const CurveChoice& choice, const std::vector<const Survey*>& surveys)
{
    return choice.kind == PlotKind::Change && choice.base != nullptr && surveys.size() == 1 &&
           surveys.front()->files == choice.base->files;
}

PlotHalf HalfOf(const CurveChoice& choice, const std::vector<const Survey*>& surveys,
                const Limits& limits)
{
    PlotHalf half{TitleOf(choice.kind, choice.channel), {}, std::nullopt};
    if (IsBaseAlone(choice, surveys))
        half.title = std::string(1, choice.channel) + ": the base itself, no change";
    for (const auto* const survey : surveys)
        std::ranges::move(CurvesOf(choice, *survey, survey == surveys.back()),
                          std::back_inserter(half.curves));
    if (choice.kind == PlotKind::Sums)
        half.limits = LimitsOf(choice.verdict, choice.channel, limits);
    return half;
}
} // namespace

PlotPage PageOf(PlotKind kind, const std::vector<const Survey*>& surveys, const Survey* base,
                const Limits& limits)
{
    // Only the sums show what the verdict says of them.
    const bool judged = kind == PlotKind::Sums && !surveys.empty();
    const auto verdict = judged ? Check(*surveys.back(), limits) : Verdict();
    const auto half = [&](char channel) {
        return HalfOf({kind, channel, base, verdict, surveys.size() > 1}, surveys, limits);
    };
    return {half('A'), half('B')};
}

} // namespace tarvex::survey
