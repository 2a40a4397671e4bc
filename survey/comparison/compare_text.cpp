#include "survey/comparison/compare_text.h"

#include "survey/model/depths.h"
#include "survey/model/number_text.h"

#include <set>

namespace tarvex::survey
{

namespace
{
constexpr std::size_t kDepthWidth = 7;
constexpr std::size_t kCellWidth = 14;

std::string Cell(const std::string& text, std::size_t width = kCellWidth)
{
    return (text.size() < width ? std::string(width - text.size(), ' ') : " ") + text;
}

std::string TitleLine(const Comparison& comparison, bool millimetres)
{
    auto line = Cell("Depth", kDepthWidth);
    for (const auto& compared : comparison.pairs) {
        line += Cell(compared.pair.Difference()) + Cell("sum");
        if (millimetres) line += Cell("sum in mm");
    }
    return line + "\n";
}

std::string ValueCell(const Series& series, int depth)
{
    const auto* const point = At(series, depth);
    return Cell(point != nullptr ? Decimals(point->value, 1) : "-");
}

std::string MillimetreCell(const Series& series, int depth, const Probe& probe)
{
    const auto* const point = At(series, depth);
    return Cell(point != nullptr ? Decimals(Millimetres(point->value, probe), 2) : "-");
}

std::string RowLine(const Comparison& comparison, int depth, const std::optional<Probe>& probe)
{
    auto line = Cell(Metres(depth), kDepthWidth);
    for (const auto& compared : comparison.pairs) {
        line += ValueCell(compared.differences, depth) + ValueCell(compared.cumulative, depth);
        if (probe) line += MillimetreCell(compared.cumulative, depth, *probe);
    }
    return line + "\n";
}

std::string SumsLine(const ComparedPair& compared)
{
    return compared.pair.Sum() + ": median " + Decimals(compared.sums.median, 1) +
           ", in the base " + Decimals(compared.baseSums.median, 1) + ", change " +
           Decimals(compared.SumsChange(), 1) + "; standard deviation " +
           Decimals(compared.sums.deviation, 2) + ", in the base " +
           Decimals(compared.baseSums.deviation, 2) + "\n";
}
} // namespace

std::string TextOf(const Comparison& comparison, const std::optional<Probe>& probe)
{
    std::set<int> depths;
    for (const auto& compared : comparison.pairs)
        for (const auto& point : compared.differences)
            depths.insert(point.depth);
    auto text = TitleLine(comparison, probe.has_value());
    for (const int depth : depths)
        text += RowLine(comparison, depth, probe);
    text += "\n";
    for (const auto& compared : comparison.pairs)
        text += SumsLine(compared);
    for (const auto& note : comparison.notes)
        text += note + "\n";
    return text;
}

} // namespace tarvex::survey
