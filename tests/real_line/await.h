#pragma once

#include <functional>

namespace tarvex::tests
{

/// Sleeps until the condition holds; throws std::runtime_error with `what` when it does not within
/// two minutes, which on a slow machine are none too many.
void Await(const std::function<bool()>& condition, const char* what);

} // namespace tarvex::tests
