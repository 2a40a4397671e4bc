#pragma once

#include "survey/model/survey.h"

#include <string>

namespace tarvex::survey
{

/// Why two surveys are not of one tube: one sentence without a full stop; empty when they may be.
std::string OtherTube(const Survey& base, const Survey& now);

} // namespace tarvex::survey
