#pragma once

#include "survey/checks/verdict.h"
#include "survey/comparison/comparison.h"
#include "survey/comparison/probe.h"
#include "survey/model/survey.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <vector>

namespace tarvex::survey
{

/// JSON whose names keep the order in which they were put.
using Json = nlohmann::ordered_json;

/// One part of the printed JSON each, with the names that json.h lists. A value that is missing is
/// null; the texts are UTF-8. A comparison is in counts, with a probe in millimetres too.
Json Value(const Survey& survey);
Json Value(const Head& head);
Json Value(const Anomaly& anomaly);
Json Value(const Verdict& verdict);
Json Value(const Comparison& comparison, const std::optional<Probe>& probe);

/// Tenths of a metre as a number of metres.
Json MetresValue(int tenths);

/// A list of depths in tenths, in metres.
Json DepthsValue(const std::vector<int>& depths);

/// For a file or a terminal: indented, UTF-8, with a line end after it.
std::string Printed(const Json& value);

} // namespace tarvex::survey
