#pragma once

#include <filesystem>
#include <functional>

namespace tarvex
{

/// The folder where the operator works; fails when there is none.
using CurrentDirectory = std::function<std::filesystem::path()>;

/// The system's answer to CurrentDirectory.
std::filesystem::path SystemCurrentDirectory();

} // namespace tarvex
