#pragma once

#include <filesystem>

namespace tarvex
{

/// Opens the operator's manual that came with the program in whatever the desktop shows pages
/// with. Where there is none, or nothing to show it with, a tip in the window says so, and goes by
/// itself. `programFolder` is where the program lies.
void OpenInstalledManual(const std::filesystem::path& programFolder);

/// Where the manual is installed, as seen from the program's folder.
extern const char* const kManualFromProgram;

/// The manual of a program that lies in that folder, installed or in its build tree; an empty path
/// when there is none.
std::filesystem::path InstalledManual(const std::filesystem::path& programFolder);

} // namespace tarvex
