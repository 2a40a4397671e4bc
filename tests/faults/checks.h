#pragma once

#include "faults/sandbox.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace tarvex::tests
{

// What must hold on the disk after anything that can happen to a manager. Each check gives what
// does not hold, one text each: nothing when all is well.

using Complaints = std::vector<std::string>;

/// The bytes of files by name.
using Files = std::map<std::string, std::string>;

/// All files of a folder, without the links: one of them is the unit's line.
Files FilesIn(const std::filesystem::path& folder);

/// The records of a header table; the last may be shorter.
std::vector<std::string> HeadersIn(const std::filesystem::path& table);

/// The header table: records of 77 bytes, at most thirty, the first ones those of `after`, the rest
/// those of `before`.
Complaints OfHeaderTable(const std::filesystem::path& table, const std::vector<std::string>& before,
                         const std::vector<std::string>& after);

/// The files of a download: whole records, each file as far as it goes as in the `clean` folder,
/// and the data report as far as it goes the work file upside down.
Complaints OfReports(const std::filesystem::path& reports, const Files& clean);

/// Nothing anywhere but the program's own files, and reports of those names.
Complaints OfPlaces(const Sandbox& desk, const Files& reports);

/// Both lists in one.
Complaints operator+(Complaints some, const Complaints& more);

} // namespace tarvex::tests
