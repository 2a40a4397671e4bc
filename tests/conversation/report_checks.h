#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// The one file in `folder` whose name ends so; empty when there is none.
std::string FileEndingIn(const std::filesystem::path& folder, const std::string& ending);

/// Whole rows of the work file in `folder`.
std::size_t RowsIn(const std::filesystem::path& folder);

/// Fails the test unless every file in `folder` consists of whole records of its kind, a head
/// report is complete, and a data report is the work file upside down.
void ExpectSoundReports(const std::filesystem::path& folder);

} // namespace tarvex::tests
