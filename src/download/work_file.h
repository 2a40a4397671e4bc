#pragma once

#include "core/record_file.h"
#include "core/working_state.h"

#include <string_view>

namespace tarvex
{

/// The first column names, record 1 of the work file and so the last of the data report.
inline constexpr std::string_view kReportTitle = "Depth;A1;B1;A3;B3;A2;B2;A4;B4";

/// Puts the title record and the blank record as records 1 and 2 of the open work file.
void WriteTitleRecords(WorkingState& state, RecordFile& workFile);

/// Fills `DataRecord` from the reply of one data page: `depth` in metres, then the page's first
/// four words, and with `fourGuides` all eight; the columns of the others keep what they hold.
void FillDataRow(WorkingState& state, std::string_view reply, double depth, bool fourGuides);

/// Puts the filled `DataRecord` as record `recordNumber` of the open work file.
void WriteDataRow(WorkingState& state, RecordFile& workFile, int recordNumber);

} // namespace tarvex
