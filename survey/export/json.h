#pragma once

#include "survey/checks/verdict.h"
#include "survey/comparison/comparison.h"
#include "survey/comparison/probe.h"
#include "survey/files/listed_survey.h"
#include "survey/model/survey.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// A survey as JSON: "files", "head", "unfinished", "rows" with "depth" in metres and one number a
/// column (null where none is), "anomalies". All JSON is UTF-8 and ends with a line end.
std::string JsonOf(const Survey& survey);

/// A survey and its verdict: as above, and "verdict".
std::string JsonOf(const Survey& survey, const Verdict& verdict);

/// "line", "good", "findings", "sums", "notes".
std::string JsonOf(const Verdict& verdict);

/// "pairs" with one row a depth, "notes"; millimetres too with a probe.
std::string JsonOf(const Comparison& comparison, const std::optional<Probe>& probe);

/// One entry a survey: "path", "head", "hasHead", "hasData".
std::string JsonOf(const std::vector<ListedSurvey>& surveys);

} // namespace tarvex::survey
