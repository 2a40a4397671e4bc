#pragma once

#include <string_view>

namespace tarvex::fuzz
{

/// Runs one input; every target is this one operation. Returns when all its promises held.
void RunInput(std::string_view input);

} // namespace tarvex::fuzz
