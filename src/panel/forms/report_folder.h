#pragma once

#include <filesystem>
#include <system_error>

namespace tarvex::panel
{

/// The folder for reports that is offered first: "dati" in the start folder, or "c:\dati" where the
/// machine has drives.
std::filesystem::path DefaultReportFolder(const std::filesystem::path& startFolder);

/// Makes one folder, and tells why not when it cannot; file_exists when it is there already.
std::error_code TryMakeFolder(const std::filesystem::path& folder);

/// Makes one folder. Raises RunTimeFailure when it is there already or cannot be made.
void MakeFolder(const std::filesystem::path& folder);

/// True when `name` names one folder inside another, and nothing beyond it: no separator, not ".",
/// not "..", not empty; and on Windows when it stays as it is: no device's, nothing that the system
/// would cut off its end, no character that it does not take.
bool IsFolderName(const std::filesystem::path& name);

/// True for a folder that the system's own programs do not show.
bool IsHidden(const std::filesystem::path& folder);

/// True when the folder can be looked into: false for an empty drive or a volume taken away.
bool CanBeListed(const std::filesystem::path& folder);

/// True when this user has the rights to make something in the folder, as far as rights show it.
bool MayBeWritten(const std::filesystem::path& folder);

/// True when something can really be made in the folder. Tries it, and leaves no trace: rights
/// alone do not decide for every user and every file system.
bool CanBeWritten(const std::filesystem::path& folder);

} // namespace tarvex::panel
