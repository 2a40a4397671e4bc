#pragma once

#include "survey/checks/verdict.h"
#include "survey/model/survey.h"

#include <filesystem>

namespace tarvex::survey
{

/// Writes a spreadsheet to a path: the sheet "Readings" with the table, "Survey" with the head, the
/// verdict and the figures of the sums. Numbers are numbers. Throws std::runtime_error when it
/// cannot be written.
void WriteXlsx(const Survey& survey, const Verdict& verdict, const std::filesystem::path& path);

} // namespace tarvex::survey
