#include "download/report_opening.h"

#include "core/failure.h"

#include <cstdio>
#include <system_error>

namespace tarvex
{

namespace
{

void RequireNoLink(const std::filesystem::path& path)
{
    std::error_code absent;
    if (std::filesystem::is_symlink(path, absent)) throw RunTimeFailure("Permission denied");
}

/// Made only where nothing is, in one step: a link put there meanwhile is not followed.
void MakeWhenNothingIsThere(const std::filesystem::path& path)
{
#ifdef _WIN32
    // Its fopen knows no mode "x" and would empty the file; only an administrator makes links
    // there.
    std::FILE* const made = ::_wfopen(path.c_str(), L"ab");
#else
    std::FILE* const made = std::fopen(path.c_str(), "wbx");
#endif
    if (made != nullptr) static_cast<void>(std::fclose(made));
}

} // namespace

void OpenReport(RecordFile& file, const ReportFile& report)
{
    const std::filesystem::path path = report.Path();
    RequireNoLink(path);
    MakeWhenNothingIsThere(path);
    RequireNoLink(path);
    file.Open(path);
}

} // namespace tarvex
