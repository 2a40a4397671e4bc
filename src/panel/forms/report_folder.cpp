#include "panel/forms/report_folder.h"

#include "core/failure.h"

#include <string>
#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarvex::panel
{

std::error_code TryMakeFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    if (std::filesystem::create_directory(folder, error)) return {};
    return error ? error : std::make_error_code(std::errc::file_exists);
}

void MakeFolder(const std::filesystem::path& folder)
{
    if (TryMakeFolder(folder)) throw RunTimeFailure("Path/File access error");
}

bool IsFolderName(const std::filesystem::path& name)
{
    return !name.empty() && name == name.filename() && name != "." && name != "..";
}

bool CanBeListed(const std::filesystem::path& folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder, error);
    return !error;
}

bool MayBeWritten(const std::filesystem::path& folder)
{
    std::error_code unknown;
    if (!std::filesystem::is_directory(folder, unknown)) return false;
#ifdef _WIN32
    return true;
#else
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
#endif
}

bool CanBeWritten(const std::filesystem::path& folder)
{
    // A folder is tried and not a file: making one never touches what is there under that name.
    constexpr int kNames = 100;
    for (int number = 0; number < kNames; ++number) {
        const auto trial = folder / (".tarvex-" + std::to_string(number));
        std::error_code error;
        if (std::filesystem::create_directory(trial, error)) {
            std::filesystem::remove(trial, error);
            return true;
        }
        if (error && error != std::errc::file_exists) return false;
    }
    return false;
}

} // namespace tarvex::panel
