#pragma once

#include "survey/survey.h"

#include <string>

namespace tarvex::survey
{

/// A survey as JSON: "files", "head", "unfinished", "rows" with "depth" in metres and one number a
/// column (null where none is), "anomalies". UTF-8, with a line end behind it.
std::string JsonOf(const Survey& survey);

} // namespace tarvex::survey
