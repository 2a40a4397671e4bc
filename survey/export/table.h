#pragma once

#include "survey/model/survey.h"

#include <string>

namespace tarvex::survey
{

/// The survey for a terminal: its head, its rows in aligned columns as the report writes them, and
/// what is odd in its files.
std::string TableOf(const Survey& survey);

/// One line for an anomaly: file, record, offset, what is odd.
std::string LineOf(const Anomaly& anomaly);

/// A reading as the report writes it: sign and five digits.
std::string ReadingText(const Reading& reading);

} // namespace tarvex::survey
