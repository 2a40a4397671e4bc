#pragma once

#include "survey/comparison/comparison.h"
#include "survey/comparison/probe.h"

#include <optional>
#include <string>

namespace tarvex::survey
{

/// For a terminal: a table of the differences and their sum, in millimetres too with a probe.
std::string TextOf(const Comparison& comparison, const std::optional<Probe>& probe);

} // namespace tarvex::survey
