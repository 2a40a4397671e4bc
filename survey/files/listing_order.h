#pragma once

#include "survey/files/listed_survey.h"

#include <vector>

namespace tarvex::survey
{

/// The surveys in order of client, site, tube, then readout number, date and time.
std::vector<ListedSurvey> Sorted(std::vector<ListedSurvey> surveys);

} // namespace tarvex::survey
