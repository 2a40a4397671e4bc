#pragma once

#include "survey/files/listed_survey.h"

#include <string>
#include <vector>

namespace tarvex::survey
{

/// For a terminal: clients, sites, tubes, and one line a reading.
std::string TextOf(const std::vector<ListedSurvey>& surveys);

} // namespace tarvex::survey
