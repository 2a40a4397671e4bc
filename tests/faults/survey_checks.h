#pragma once

#include "faults/checks.h"

namespace tarvex::tests
{

/// What the survey database holds: each row as one text, in the order of its making. Taken from a
/// copy, so that what a kill has left beside the file stays for the program to deal with.
std::vector<std::string> SurveyRows(const std::filesystem::path& database);

/// The database is sound, the first of its rows are those of `after` and the rest those of
/// `before`, none of which is lost. A database that is not made yet has no rows.
Complaints OfDatabase(const std::filesystem::path& database, const std::vector<std::string>& before,
                      const std::vector<std::string>& after);

} // namespace tarvex::tests
