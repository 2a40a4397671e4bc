#pragma once

#include "survey/figures/series.h"
#include "survey/figures/statistics.h"
#include "survey/model/survey.h"

#include <string>
#include <vector>

namespace tarvex::survey
{

/// What is to be done about a finding.
enum class Remedy {
    ReadAgain,     ///< at its depths, with the probe in the borehole
    ReadAllAgain,  ///< the whole tube, with the probe in the borehole
    DownloadAgain, ///< the unit may still hold what is missing
    LookAtFiles    ///< something has changed them
};

/// One reason against a survey.
struct Finding {
    std::string check; ///< one word: "depths", "frozen", "scale", "sums", "pass", "spike", "pairs"…
    Remedy remedy = Remedy::ReadAgain;
    std::string channels;    ///< "A", "B", or "AB" for both
    std::vector<int> depths; ///< tenths of a metre, shallowest first; none for the whole tube
    std::string text;        ///< one sentence without a full stop
};

/// The sums of one pair of opposite readings in figures.
struct SumFigures {
    Pair pair;
    Summary summary;
    double departure = 0; ///< the largest from the median, with its sign
    int departureDepth = 0;
    double drift = 0; ///< median of the shallowest third less that of the deepest
    std::vector<int> outliers;
};

/// Whether a survey is good, and why not.
struct Verdict {
    std::vector<Finding> findings;
    std::vector<SumFigures> sums;
    std::vector<std::string> notes; ///< worth knowing, nothing against the survey

    /// True when no check has found anything.
    bool Good() const { return findings.empty(); }

    /// The verdict in one line: "good", or what to do: "read again at 12.5, 13.0 m (A)".
    std::string Line() const;
};

/// Channels after a depth or a remedy: " (A)", " (A and B)"; empty for none.
std::string ChannelText(const std::string& channels);

} // namespace tarvex::survey
