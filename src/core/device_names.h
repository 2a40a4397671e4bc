#pragma once

#include <string_view>

namespace tarvex
{

/// True for a name that Windows gives to a device in every folder: "NUL", "com1.dat", "Aux .txt".
/// What is written under it never becomes a file, and may go out on a serial line.
bool NamesADevice(std::string_view name);

} // namespace tarvex
