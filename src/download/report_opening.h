#pragma once

#include "core/record_file.h"
#include "download/report_names.h"

namespace tarvex
{

/// Opens a file of the report folder as RecordFile::Open does, but never through a link: whatever
/// was there under its name has been deleted just before, so that a link still there belongs to
/// another user of the folder and leads to a file that is not the operator's to overwrite.
void OpenReport(RecordFile& file, const ReportFile& report);

} // namespace tarvex
