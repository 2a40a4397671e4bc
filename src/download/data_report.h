#pragma once

#include "core/event_pump.h"
#include "core/working_state.h"
#include "download/report_names.h"

namespace tarvex
{

/// Makes the data report out of the work file: its records in reverse order after two records
/// without data, so that the title comes last. A work file of N + 2 records gives N + 4.
///
/// When the work file cannot be opened this never returns: only the end of the program ends it.
void WriteDataReport(WorkingState& state, EventPump& pump, const ReportFile& reportFile,
                     const ReportFile& workFile);

} // namespace tarvex
