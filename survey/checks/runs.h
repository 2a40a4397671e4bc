#pragma once

#include "survey/model/reading.h"

#include <functional>
#include <vector>

namespace tarvex::survey
{

/// Depths of neighbouring rows, each the same as the one before.
using Run = std::vector<int>;

/// The runs of `length` and more rows in steps of `step`.
std::vector<Run> Runs(const std::vector<Row>& rows, int step, double length,
                      const std::function<bool(const Row&, const Row&)>& same);

/// Whether one of the runs has all depths of that one.
bool Covers(const std::vector<Run>& runs, const Run& run);

} // namespace tarvex::survey
