#pragma once

#include "survey/files/folder_scan.h"

#include <chrono>
#include <functional>

namespace tarvex::survey
{

/// What the time is, on a clock that never goes back.
using Now = std::function<std::chrono::steady_clock::time_point()>;

/// Passes on to `report` at most one count a second, the first no sooner than a second from now: a
/// short listing says nothing of its progress.
Progress Paced(Progress report, Now now = std::chrono::steady_clock::now);

} // namespace tarvex::survey
