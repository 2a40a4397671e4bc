#pragma once

#include "survey/figures/series.h"
#include "survey/figures/statistics.h"

#include <string>
#include <vector>

namespace tarvex::survey
{

/// One pair of guides in two readings of a tube, by the depths of the later one.
struct ComparedPair {
    Pair pair;
    Series differences; ///< half difference now less that of the base
    Series cumulative;  ///< their sum from the end that was chosen, up to and with this depth
    Summary baseSums;
    Summary sums;
    /// The half differences are those of the base with the other sign.
    bool opposite = false;

    /// Median of the sums now less that of the base: twice the change of the probe's zero.
    double SumsChange() const { return sums.median - baseSums.median; }
};

/// Two readings of one tube, held against each other.
struct Comparison {
    std::vector<ComparedPair> pairs;
    std::vector<std::string> notes;
    /// Why nothing was compared: one sentence without a full stop; empty when it was.
    std::string refusal;
    /// A pair is opposite to the base's: its sum means nothing.
    bool Suspicious() const;
    int deeper = 0; ///< depth of the tube now less that of the base, tenths of a metre
};

} // namespace tarvex::survey
