#pragma once

#include "support/scripted_unit.h"

#include <string>
#include <vector>

namespace tarvex::tests
{

/// The ten header fields of a small survey: 1.5 m deep in steps of 0.5 m, two guides.
std::vector<std::string> SmallSurveyHeader();

/// Puts the small survey with its three pages of readings into the block with that index.
void SetSmallSurvey(ScriptedUnit& unit, int index);

/// The bytes of its three rows, the deepest first.
std::vector<std::string> SmallSurveyRows();

/// The bytes of its head report.
std::string SmallSurveyHeadReport();

/// What its files' names begin with.
inline const std::string kSmallSurvey = "CLIENT0 -SITE0000-T12 -03-";

/// Puts a survey of that depth ("0155"), step and number of guides into the block with that index:
/// the words of data page n (from 0) are 8000 hexadecimal plus n, in every column.
void SetSurvey(ScriptedUnit& unit, int index, const std::string& depth, const std::string& step,
               const std::string& guides);

} // namespace tarvex::tests
