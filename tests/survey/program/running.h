#pragma once

#include <string>
#include <vector>

namespace tarvex::tests
{

/// What a run of tarvex-survey left.
struct Outcome {
    int status = -1; ///< exit status; -1 when it did not end by itself
    std::string output;
    std::string errors;
};

/// Runs tarvex-survey with these arguments to its end, without a display.
Outcome RunSurvey(const std::vector<std::string>& arguments);

} // namespace tarvex::tests
