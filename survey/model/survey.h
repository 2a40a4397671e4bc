#pragma once

#include "survey/model/anomaly.h"
#include "survey/model/head.h"
#include "survey/model/reading.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// A survey as its files give it.
struct Survey {
    std::vector<std::string> files; ///< paths, head report first
    std::optional<Head> head;
    std::vector<Row> rows; ///< shallowest first, one a depth
    std::vector<Anomaly> anomalies;
    bool unfinished = false; ///< from the work file of a download
};

/// Step between two depths in tenths of a metre: from the head, else the most frequent distance of
/// the rows, 5 where they do not show one.
int StepOf(const Survey& survey);

/// Depth of the tube in tenths of a metre: from the head where it holds a number, else that of the
/// deepest row; 0 without rows.
int DepthOf(const Survey& survey);

/// Four guides, by the head where it says 2 or 4, else by the columns that have readings.
bool HasFourGuides(const Survey& survey);

/// Columns of a survey with that many guides: the first four, or all eight.
std::size_t ColumnsOf(const Survey& survey);

} // namespace tarvex::survey
