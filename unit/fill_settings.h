#pragma once

#include "unit/survey.h"

#include <string_view>

namespace tarvex::unit
{

/// Sets one value of a survey by its name in a filling. Throws std::invalid_argument for a name
/// that there is not and for a value that it cannot have.
void Set(Survey& survey, std::string_view name, std::string_view value);

} // namespace tarvex::unit
