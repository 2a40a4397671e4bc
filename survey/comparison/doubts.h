#pragma once

#include "survey/comparison/comparison.h"
#include "survey/model/survey.h"

namespace tarvex::survey
{

/// Notes what a comparison of one tube has to be taken with: no head, another depth, gaps. The
/// change of depth is known already.
void NoteDoubts(const Survey& base, const Survey& now, Comparison& comparison);

} // namespace tarvex::survey
