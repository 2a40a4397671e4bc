#pragma once

#include "survey/comparison/comparison.h"
#include "survey/model/survey.h"

namespace tarvex::survey
{

/// Where the sum of the differences begins.
enum class SumFrom { Bottom, Top };

/// Compares two readings of the same tube, depth by depth from the bottom up. Another client, site,
/// tube, number of guides or step is refused.
Comparison Compare(const Survey& base, const Survey& now, SumFrom from);

} // namespace tarvex::survey
