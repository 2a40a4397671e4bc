#pragma once

#include "architecture/plan.h"

#include <string>

namespace tarvex::tests
{

/// A folder as includes give it: "core/" for "src/core".
std::string IncludedAs(std::string_view folder);

/// What a source of that path must not say, one complaint an include.
std::vector<std::string> Complaints(const std::string& path, const std::string& source);

} // namespace tarvex::tests
