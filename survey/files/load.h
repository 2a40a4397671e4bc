#pragma once

#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/model/survey.h"

#include <filesystem>

namespace tarvex::survey
{

/// Throws Refusal, with the sentence that Load would give, when a file is no report.
void RequireReport(const std::filesystem::path& path);

/// A survey from one of its files: a head report finds the data report in its folder, and the other
/// way round, whatever the case of the names' endings. A data report or work file alone is a survey
/// without a head; a head report alone is one without rows, which is an anomaly. Throws Refusal
/// when the file given is no report; a partner that is none is an anomaly.
Survey Load(const std::filesystem::path& path);

} // namespace tarvex::survey
