#pragma once

#include "survey/checks/verdict.h"
#include "survey/program/options.h"

namespace tarvex::survey
{

/// Writes the pictures that the options ask for, without any display. Throws Refusal for a file
/// that cannot be written or a base of another tube.
void WritePictures(const Options& options, const Survey& survey, const Verdict& verdict);

} // namespace tarvex::survey
