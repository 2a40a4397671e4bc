#pragma once

#include "survey/model/readable.h"
#include "survey/model/text.h"
#include "survey/reports/anomalies.h"
#include "survey/reports/reader.h"
#include "survey/reports/records.h"

namespace tarvex::survey
{

/// The rows of a data report or a work file, distinguished by the place of their title. Of the
/// records that are no rows, those that the manager writes are passed over in silence.
Contents ReadDataReport(const std::vector<Record>& records, Encoding encoding,
                        AnomalyList& anomalies);

} // namespace tarvex::survey
