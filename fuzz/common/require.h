#pragma once

#include <string_view>

namespace tarvex::fuzz
{

/// Says on the standard error what does not hold, and aborts.
[[noreturn]] void Broken(std::string_view promise);

/// What must hold for any input: a target finds a fault by ending here, as it does by a sanitizer.
inline void Require(bool holds, std::string_view promise)
{
    if (!holds) Broken(promise);
}

} // namespace tarvex::fuzz
