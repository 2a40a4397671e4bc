#pragma once

#include "survey/model/readable.h"
#include "survey/model/text.h"
#include "survey/reports/anomalies.h"
#include "survey/reports/reader.h"
#include "survey/reports/records.h"

namespace tarvex::survey
{

/// Whether the first record with any text is a line of a head report.
bool IsHeadReport(const std::vector<Record>& records);

/// The ten values by their labels. A line that is missing, comes twice or is none of the ten is an
/// anomaly.
Contents ReadHeadReport(const std::vector<Record>& records, Encoding encoding,
                        AnomalyList& anomalies);

} // namespace tarvex::survey
