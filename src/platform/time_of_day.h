#pragma once

#include <string>

namespace tarvex::platform
{

/// The time of this machine's clock, "14:02".
std::string TimeOfDay();

} // namespace tarvex::platform
