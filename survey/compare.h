#pragma once

#include "survey/series.h"
#include "survey/statistics.h"
#include "survey/survey.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// Where the sum of the differences begins.
enum class SumFrom { Bottom, Top };

/// What a probe's counts mean; the reports do not hold it.
struct Probe {
    double constant = 0; ///< counts of a half difference for a sine of 1
    double base = 0;     ///< distance of its wheels in metres
};

/// Millimetres across the tube that a half difference over one base length is.
double Millimetres(double counts, const Probe& probe);

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

/// Compares two readings of the same tube, depth by depth from the bottom up. Another client, site,
/// tube, number of guides or step is refused.
Comparison Compare(const Survey& base, const Survey& now, SumFrom from);

/// For a terminal: a table of the differences and their sum, in millimetres too with a probe.
std::string TextOf(const Comparison& comparison, const std::optional<Probe>& probe);

} // namespace tarvex::survey
