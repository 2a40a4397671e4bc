#include "survey/comparison/same_tube.h"

#include "survey/model/depths.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tarvex::survey
{

namespace
{
/// The fields that make two heads those of one tube.
constexpr std::array<std::string_view, 3> kIdentity{"client", "site", "tube"};

std::string Unlike(std::string_view name, const std::string& is, const std::string& was)
{
    return "the " + std::string(name) + " is \"" + is + "\", that of the base \"" + was + "\"";
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
} // namespace

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

void NoteDoubts(const Survey& base, const Survey& now, Comparison& comparison)
{
    NoteHeads(base, now, comparison);
    NoteDepth(base, now, comparison);
    NoteGaps(base, now, comparison);
}

} // namespace tarvex::survey
