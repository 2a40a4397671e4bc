#include "survey/window/plot_curves.h"

#include "survey/comparison/compare.h"

#include <utility>

namespace tarvex::survey
{

namespace
{
std::string Labelled(const std::string& name, const Survey& survey, bool several)
{
    if (!several || !survey.head) return name;
    return name + ", readout " + survey.head->readout;
}

std::vector<Curve> ReadingCurves(const CurveChoice& choice, const Survey& survey, bool strong)
{
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < ColumnsOf(survey); ++i)
        if (kColumnNames[i].front() == choice.channel)
            curves.push_back({Labelled(std::string(kColumnNames[i]), survey, choice.several),
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

std::vector<Curve> SumCurves(const CurveChoice& choice, const Survey& survey, bool strong)
{
    std::vector<Curve> curves;
    for (const auto& pair : PairsOf(survey))
        if (pair.channel == choice.channel)
            curves.push_back({Labelled(pair.Sum(), survey, choice.several), SumsOf(survey, pair),
                              strong,
                              strong ? OutliersOf(choice.verdict, pair) : std::vector<int>()});
    return curves;
}

std::vector<Curve> DifferenceCurves(const CurveChoice& choice, const Survey& survey, bool strong)
{
    std::vector<Curve> curves;
    for (const auto& pair : PairsOf(survey))
        if (pair.channel == choice.channel)
            curves.push_back({Labelled(pair.Difference(), survey, choice.several),
                              HalfDifferencesOf(survey, pair),
                              strong,
                              {}});
    return curves;
}

std::vector<Curve> ChangeCurves(const CurveChoice& choice, const Survey& survey, bool strong)
{
    std::vector<Curve> curves;
    if (choice.base == nullptr || choice.base == &survey) return curves;
    for (const auto& compared : Compare(*choice.base, survey, SumFrom::Bottom).pairs)
        if (compared.pair.channel == choice.channel)
            curves.push_back({Labelled(compared.pair.Difference(), survey, choice.several),
                              compared.cumulative,
                              strong,
                              {}});
    return curves;
}
} // namespace

std::vector<Curve> CurvesOf(const CurveChoice& choice, const Survey& survey, bool strong)
{
    switch (choice.kind) {
    case PlotKind::Readings:
        return ReadingCurves(choice, survey, strong);
    case PlotKind::HalfDifferences:
        return DifferenceCurves(choice, survey, strong);
    case PlotKind::Sums:
        return SumCurves(choice, survey, strong);
    case PlotKind::Change:
        break;
    }
    return ChangeCurves(choice, survey, strong);
}

} // namespace tarvex::survey
