#include "panel/forms/report_folder.h"

#include "core/failure.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

#ifdef _WIN32
#include "core/code_page.h"
#include "core/device_names.h"

#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarvex::panel
{

namespace
{

#ifdef _WIN32
bool StaysAsItIs(const std::filesystem::path& name)
{
    const std::wstring& text = name.native();
    const bool refused = std::ranges::any_of(text, [](wchar_t character) {
        return character < L' ' ||
               std::wstring_view(LR"(<>:"/\|?*)").find(character) != std::wstring_view::npos;
    });
    return !refused && text.back() != L'.' && text.back() != L' ' &&
           !NamesADevice(code_page::Shown(name));
}
#else
bool StaysAsItIs(const std::filesystem::path&)
{
    return true;
}
#endif

} // namespace

std::filesystem::path DefaultReportFolder(const std::filesystem::path& startFolder)
{
#ifdef _WIN32
    static_cast<void>(startFolder);
    return LR"(c:\dati)";
#else
    return startFolder / "dati";
#endif
}

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
    return !name.empty() && name == name.filename() && name != "." && name != ".." &&
           StaysAsItIs(name);
}

bool IsHidden(const std::filesystem::path& folder)
{
#ifdef _WIN32
    const DWORD attributes = ::GetFileAttributesW(folder.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
        return true;
#endif
    return folder.filename().native().front() == '.';
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
