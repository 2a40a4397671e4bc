#pragma once

#include "survey/reports/records.h"

#include <cstddef>
#include <vector>

namespace tarvex::survey
{

/// Whether a record is the title over the columns of a data report.
bool IsTitle(const Record& record);

/// Where the title is: first in a work file, last in a data report.
struct Title {
    std::size_t first = 0; ///< number of its record; 0 without a title
    std::size_t count = 0;
};

/// Looks for the title in all records of a file.
Title FindTitle(const std::vector<Record>& records);

} // namespace tarvex::survey
