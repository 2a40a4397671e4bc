#pragma once

#include "survey/checks/check_limits.h"
#include "survey/checks/verdict.h"

namespace tarvex::survey
{

/// Judges a survey: whether all is there, whether the probe was alive, turned and in its guides.
Verdict Check(const Survey& survey, const Limits& limits = {});

} // namespace tarvex::survey
