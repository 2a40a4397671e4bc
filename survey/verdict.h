#pragma once

#include "survey/series.h"
#include "survey/statistics.h"
#include "survey/survey.h"

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

/// Depths as a list of metres, runs of three and more in a step as "4.0 to 6.5": "2.0, 4.0 to 6.5".
std::string DepthList(const std::vector<int>& depths, int step);

/// For a terminal: the line, then one line a reason, the figures of the sums, the notes.
std::string TextOf(const Verdict& verdict);

} // namespace tarvex::survey
