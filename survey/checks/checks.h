#pragma once

#include "survey/checks/check_limits.h"
#include "survey/checks/verdict.h"

namespace tarvex::survey
{

/// What one check sees, and where it puts what it finds.
struct CheckedSurvey {
    const Survey& survey; ///< without the depths at which nothing was stored
    const Limits& limits;
    Verdict& verdict;
    int step = 0;

    /// Adds a finding to the verdict, or its depths to the same finding at others.
    void Report(Finding finding) const;
};

/// Every depth there, and no other.
void CheckDepths(const Survey& whole, const CheckedSurvey& checked);

/// Every depth with all its readings.
void CheckReadings(const Survey& whole, const CheckedSurvey& checked);

/// The files as the manager writes them; what is harmless becomes a note.
void CheckFiles(const Survey& whole, const CheckedSurvey& checked);

/// The probe gave new readings from depth to depth.
void CheckFrozen(const CheckedSurvey& checked);

/// No reading at the end of its scale.
void CheckScale(const CheckedSurvey& checked);

/// The second pass is the first with the probe turned. Returns false, with a finding, where it is
/// recognised as something else: the sums say nothing then.
bool CheckPass(const CheckedSurvey& checked, const Pair& pair);

/// The sums of opposite readings stay near a constant. Fills the figures.
void CheckSums(const CheckedSurvey& checked, const Pair& pair, bool judged);

/// No half difference leaps out of the line of its neighbours.
void CheckSpikes(const CheckedSurvey& checked, const Pair& pair);

/// With four guides, each channel of one pair follows the other channel of the other pair.
void CheckPairs(const CheckedSurvey& checked);

} // namespace tarvex::survey
