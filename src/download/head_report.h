#pragma once

#include "core/working_state.h"
#include "download/report_names.h"

namespace tarvex
{

/// Writes the head report into `file` and closes it: 19 records of 42 bytes, the ten values of the
/// header after their labels with an empty line between any two.
void WriteHeadReport(WorkingState& state, const HeaderTexts& header, const ReportFile& file);

} // namespace tarvex
