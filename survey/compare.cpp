#include "survey/compare.h"

#include "survey/number_text.h"
#include "survey/verdict.h"

#include <algorithm>

namespace tarvex::survey
{

namespace
{
constexpr double kMillimetres = 1000;

/// The fields that make two heads those of one tube.
constexpr std::array<std::string_view, 3> kIdentity{"client", "site", "tube"};

std::string Unlike(std::string_view name, const std::string& is, const std::string& was)
{
    return "the " + std::string(name) + " is \"" + is + "\", that of the base \"" + was + "\"";
}

std::string OtherTube(const Survey& base, const Survey& now)
{
    if (base.head && now.head)
        for (const auto& field : kHeadFields) {
            if (std::ranges::find(kIdentity, field.name) == kIdentity.end()) continue;
            const auto& was = (*base.head).*(field.value);
            const auto& is = (*now.head).*(field.value);
            if (was != is) return Unlike(field.name, is, was);
        }
    if (HasFourGuides(base) != HasFourGuides(now)) return "the number of guides is not the base's";
    if (StepOf(base) != StepOf(now)) return "the step is not the base's";
    return "";
}

/// Without a head nothing says which tube it is.
void NoteHeads(const Survey& base, const Survey& now, Comparison& comparison)
{
    if (!base.head || !now.head)
        comparison.notes.push_back("a head report is missing: that it is the same tube is taken on "
                                   "trust");
}

void NoteDepth(const Survey& base, const Survey& now, Comparison& comparison)
{
    if (comparison.deeper != 0)
        comparison.notes.push_back("the tube is " + Metres(DepthOf(now)) + " m deep, in the base " +
                                   Metres(DepthOf(base)) +
                                   " m: they are held together at the bottom");
}

/// Depths that only one of the two has; the sum takes no difference there.
void NoteGaps(const Survey& base, const Survey& now, Comparison& comparison)
{
    std::vector<int> bare;
    for (const auto& row : now.rows)
        if (std::ranges::find(base.rows, row.depth - comparison.deeper, &Row::depth) ==
            base.rows.end())
            bare.push_back(row.depth);
    if (!bare.empty())
        comparison.notes.push_back("the base has no readings for " + DepthList(bare, StepOf(now)) +
                                   " m");
    std::vector<int> lost;
    for (const auto& row : base.rows)
        if (std::ranges::find(now.rows, row.depth + comparison.deeper, &Row::depth) ==
            now.rows.end())
            lost.push_back(row.depth + comparison.deeper);
    if (!lost.empty())
        comparison.notes.push_back("only the base has readings for " +
                                   DepthList(lost, StepOf(now)) + " m");
}

Series DifferencesOf(const Series& base, const Series& now, int deeper, double sign)
{
    Series differences;
    for (const auto& point : now)
        if (const auto* const before = At(base, point.depth - deeper))
            differences.push_back({point.depth, point.value - sign * before->value});
    return differences;
}

Series Cumulated(Series series, SumFrom from)
{
    double sum = 0;
    const auto add = [&](Point& point) { point.value = sum += point.value; };
    if (from == SumFrom::Bottom)
        std::for_each(series.rbegin(), series.rend(), add);
    else
        std::for_each(series.begin(), series.end(), add);
    return series;
}

/// Whether the readings are the base's with the other sign, far better than with their own.
bool IsOpposite(const Series& differences, const Series& sums)
{
    constexpr double kSharper = 4;
    constexpr double kFloor = 10; // counts; a straight tube fits either way
    const double right = SummaryOf(ValuesOf(differences)).mad;
    return right > kFloor && right > kSharper * SummaryOf(ValuesOf(sums)).mad;
}

ComparedPair ComparePair(const Survey& base, const Survey& now, const Pair& pair, int deeper,
                         SumFrom from)
{
    const auto before = HalfDifferencesOf(base, pair);
    const auto after = HalfDifferencesOf(now, pair);
    ComparedPair compared{pair, DifferencesOf(before, after, deeper, 1), {}, {}, {}, false};
    compared.cumulative = Cumulated(compared.differences, from);
    compared.baseSums = SummaryOf(ValuesOf(SumsOf(base, pair)));
    compared.sums = SummaryOf(ValuesOf(SumsOf(now, pair)));
    compared.opposite = IsOpposite(compared.differences, DifferencesOf(before, after, deeper, -1));
    return compared;
}
} // namespace

bool Comparison::Suspicious() const
{
    return std::ranges::any_of(pairs, &ComparedPair::opposite);
}

double Millimetres(double counts, const Probe& probe)
{
    return counts / probe.constant * probe.base * kMillimetres;
}

Comparison Compare(const Survey& base, const Survey& now, SumFrom from)
{
    Comparison comparison;
    comparison.refusal = OtherTube(base, now);
    if (!comparison.refusal.empty()) return comparison;
    comparison.deeper = DepthOf(now) - DepthOf(base);
    NoteHeads(base, now, comparison);
    NoteDepth(base, now, comparison);
    NoteGaps(base, now, comparison);
    for (const auto& pair : PairsOf(now)) {
        comparison.pairs.push_back(ComparePair(base, now, pair, comparison.deeper, from));
        if (comparison.pairs.back().opposite)
            comparison.notes.push_back("the half differences " + pair.Difference() +
                                       " are those of the base with the other sign: the guides "
                                       "were taken the other way round");
    }
    return comparison;
}

} // namespace tarvex::survey
