#pragma once

#include "unit/line_log.h"

#include <cstddef>
#include <vector>

namespace tarvex::bench
{

/// Seconds that one character is on the line: a start, eight data and two stop bits.
inline constexpr double kCharacter = 11.0 / 9600;

/// Characters of a wake, its answer, a read frame and a page.
inline constexpr int kExchangeLength = 1 + 1 + 7 + 50;

/// What a conversation cost beyond the line itself, as the unit has heard it: whoever leads it is
/// measured alike, from outside.
struct ConversationCost {
    std::size_t exchanges = 0;
    double seconds = 0;               ///< from the first character sent to the last one taken
    std::vector<double> extraLatency; ///< seconds beyond the line, from each wake to the next
};

/// The cost of a conversation of wakes and read frames, from the unit's log of it.
ConversationCost CostOf(const std::vector<unit::LogLine>& log);

/// The value that `share` of the values, 0 to 1, do not exceed; 0 of none.
double Quantile(std::vector<double> values, double share);

/// The middle value.
double Median(std::vector<double> values);

} // namespace tarvex::bench
