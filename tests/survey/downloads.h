#pragma once

#include "support/temporary_folder.h"

#include <filesystem>
#include <string>

namespace tarvex::tests
{

/// Lets the manager download a survey from the simulated unit into a folder.
///
/// `fill` is the survey as the unit takes it ("1:depth=20,spike=6"), `fault` what goes wrong on the
/// line ("wrong@wake15"), if anything. Returns the path of the head report; the data report lies
/// beside it unless the line broke.
std::filesystem::path Download(const std::filesystem::path& folder, const std::string& fill,
                               const std::string& fault = "");

/// The data report beside a head report.
std::filesystem::path DataReportOf(const std::filesystem::path& headReport);

} // namespace tarvex::tests
