#pragma once

#include "survey/model/readable.h"
#include "survey/model/survey.h"
#include "survey/model/text.h"
#include "survey/reports/anomalies.h"
#include "survey/reports/records.h"

#include <optional>
#include <string_view>

namespace tarvex::survey
{

/// Whether a text is a row just as the manager writes it: a depth "000.5" and readings with a sign
/// and five digits.
bool IsPlainRow(std::string_view text);

/// The row of a record; nothing when it does not begin with a depth. A reading that the unit cannot
/// have given is left out and becomes an anomaly.
std::optional<Row> ReadRow(const Record& record, Encoding encoding, AnomalyList& anomalies);

} // namespace tarvex::survey
