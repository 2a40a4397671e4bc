#pragma once

#include "survey/comparison/comparison.h"
#include "survey/model/survey.h"

#include <string>

namespace tarvex::survey
{

/// Why two surveys are not of one tube: one sentence without a full stop; empty when they may be.
std::string OtherTube(const Survey& base, const Survey& now);

/// Notes what a comparison of one tube has to be taken with: no head, another depth, gaps. The
/// change of depth is known already.
void NoteDoubts(const Survey& base, const Survey& now, Comparison& comparison);

} // namespace tarvex::survey
