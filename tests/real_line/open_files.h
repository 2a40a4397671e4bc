#pragma once

#include <string>
#include <vector>

namespace tarvex::tests
{

/// What each descriptor of this process leads to, but for the adapter's socket, where a thread of
/// the adapter may be. A device that is gone has "(deleted)" after its name.
std::vector<std::string> OpenFiles();

/// True while one of them is a serial port under test.
bool HasPortOpen();

} // namespace tarvex::tests
