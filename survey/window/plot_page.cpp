#include "survey/window/plot_page.h"

#include "survey/check.h"
#include "survey/compare.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
std::string Labelled(const std::string& name, const Survey& survey, bool several)
{
    if (!several || !survey.head) return name;
    return name + ", readout " + survey.head->readout;
}

std::vector<Curve> ReadingCurves(const Survey& survey, char channel, bool strong, bool several)
{
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < ColumnsOf(survey); ++i)
        if (kColumnNames[i].front() == channel)
            curves.push_back({Labelled(std::string(kColumnNames[i]), survey, several),
                              ReadingsOf(survey, static_cast<Column>(i)),
                              strong,
                              {}});
    return curves;
}

/// Depths of the outliers of a pair, by the verdict.
std::vector<int> OutliersOf(const Verdict& verdict, const Pair& pair)
{
    for (const auto& figures : verdict.sums)
        if (figures.pair.first == pair.first) return figures.outliers;
    return {};
}

std::vector<Curve> PairCurves(PlotKind kind, const Survey& survey, const Survey* base, char channel,
                              bool strong, bool several, const Verdict& verdict)
{
    std::vector<Curve> curves;
    for (const auto& pair : PairsOf(survey)) {
        if (pair.channel != channel) continue;
        if (kind == PlotKind::Sums)
            curves.push_back({Labelled(pair.Sum(), survey, several), SumsOf(survey, pair), strong,
                              strong ? OutliersOf(verdict, pair) : std::vector<int>()});
        if (kind == PlotKind::HalfDifferences)
            curves.push_back({Labelled(pair.Difference(), survey, several),
                              HalfDifferencesOf(survey, pair),
                              strong,
                              {}});
    }
    if (kind != PlotKind::Change || base == nullptr || base == &survey) return curves;
    for (const auto& compared : Compare(*base, survey, SumFrom::Bottom).pairs)
        if (compared.pair.channel == channel)
            curves.push_back({Labelled(compared.pair.Difference(), survey, several),
                              compared.cumulative,
                              strong,
                              {}});
    return curves;
}

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

PlotHalf HalfOf(PlotKind kind, char channel, const std::vector<const Survey*>& surveys,
                const Survey* base, const Limits& limits)
{
    PlotHalf half{TitleOf(kind, channel), {}, std::nullopt};
    if (surveys.empty()) return half;
    const auto verdict = Check(*surveys.back(), limits);
    for (const auto* const survey : surveys) {
        const bool strong = survey == surveys.back();
        const bool several = surveys.size() > 1;
        auto curves = kind == PlotKind::Readings
                          ? ReadingCurves(*survey, channel, strong, several)
                          : PairCurves(kind, *survey, base, channel, strong, several, verdict);
        std::ranges::move(curves, std::back_inserter(half.curves));
    }
    if (kind == PlotKind::Sums) half.limits = LimitsOf(verdict, channel, limits);
    return half;
}
} // namespace

PlotPage PageOf(PlotKind kind, const std::vector<const Survey*>& surveys, const Survey* base,
                const Limits& limits)
{
    return {HalfOf(kind, 'A', surveys, base, limits), HalfOf(kind, 'B', surveys, base, limits)};
}

} // namespace tarvex::survey
