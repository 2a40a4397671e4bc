#pragma once

#include "unit/survey.h"

#include <string_view>

namespace tarvex::unit
{

/// A survey and the block (1 to 30) that it fills.
struct Fill {
    int block = 1;
    Survey survey;
};

/// A fill from its text: the block number, then ":" and settings parted by commas, as in
/// "4:depth=25.5,step=1,guides=4,client=ROSSI".
///
/// Settings are client, site, tube, north, nlet, date and time (texts, kept as they are), depth
/// in metres up to 200 with at most one decimal, step 0.5 or 1, guides 2 or 4, and seed, a whole
/// number. What may have gone wrong is frozen, spike, swapped and unread with a depth in metres,
/// unturned with 1, drift with counts up to 1000, moved with a number of readouts up to 25. What is
/// not set is a plausible survey of 20.0 m at 0.5 m with two guides, and the block
/// number for seed. Anything else throws std::invalid_argument with the reason.
Fill ParseFill(std::string_view text);

} // namespace tarvex::unit
