#pragma once

#include "survey/survey.h"

#include <nlohmann/json.hpp>

#include <string>

namespace tarvex::survey
{

/// JSON whose names keep the order in which they were put.
using Json = nlohmann::ordered_json;

Json Value(const Survey& survey);
Json Value(const Anomaly& anomaly);

/// Tenths of a metre as a number of metres.
Json MetresValue(int tenths);

/// For a file or a terminal: indented, UTF-8, a line end behind it.
std::string Printed(const Json& value);

} // namespace tarvex::survey
