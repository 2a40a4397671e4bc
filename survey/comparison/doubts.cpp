#include "survey/comparison/doubts.h"

#include "survey/model/depths.h"

#include <algorithm>
#include <vector>

namespace tarvex::survey
{

namespace
{
/// Without a head nothing says which tube it is.
void NoteHeads(const Survey& base, const Survey& now, Comparison& comparison)
{
    if (!base.head || !now.head)
        comparison.notes.push_back("a head report is missing: nothing shows that it is the same "
                                   "tube");
}

void NoteDepth(const Survey& base, const Survey& now, Comparison& comparison)
{
    if (comparison.deeper != 0)
        comparison.notes.push_back("the tube is " + Metres(DepthOf(now)) + " m deep, in the base " +
                                   Metres(DepthOf(base)) + " m: they are aligned at the bottom");
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

void NoteDoubts(const Survey& base, const Survey& now, Comparison& comparison)
{
    NoteHeads(base, now, comparison);
    NoteDepth(base, now, comparison);
    NoteGaps(base, now, comparison);
}

} // namespace tarvex::survey
