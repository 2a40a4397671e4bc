#include "download/report_names.h"

#include "core/code_page.h"
#include "core/device_names.h"
#include "core/failure.h"
#include "core/path_text.h"

namespace tarvex
{

namespace
{

/// What no name may hold: the separators of the target system, and the NUL that would end the name
/// early.
bool ReachesOutside(std::string_view name)
{
    constexpr auto separator = std::filesystem::path::preferred_separator;
    return name.find('\0') != std::string_view::npos || name.find('/') != std::string_view::npos ||
           name.find(static_cast<char>(separator)) != std::string_view::npos;
}

/// A name that Windows takes for a device, or for a part of another file after a colon.
bool IsNoFileOfWindows(std::string_view name)
{
    return name.find(':') != std::string_view::npos || NamesADevice(name);
}

std::string NameOf(const HeaderTexts& header, std::string_view ending)
{
    return header[HeaderBox::Client] + "-" + header[HeaderBox::Site] + "-" +
           header[HeaderBox::Tube] + "-" + header[HeaderBox::Readout] + "-" + std::string(ending);
}

} // namespace

std::string ReportFile::Shown() const
{
    return code_page::Shown(folder) +
           static_cast<char>(std::filesystem::path::preferred_separator) + name;
}

std::filesystem::path ReportFile::Path() const
{
    constexpr bool windows = std::filesystem::path::preferred_separator == '\\';
    if (ReachesOutside(name) || (windows && IsNoFileOfWindows(name)))
        throw RunTimeFailure("Bad file name");
    std::filesystem::path path = folder;
    path += std::filesystem::path::preferred_separator;
    path += path_text::FromUnicode(code_page::ToUtf16(name));
    return path;
}

ReportFile HeadReportFile(const std::filesystem::path& folder, const HeaderTexts& header)
{
    return {folder, NameOf(header, "dat.dat")};
}

ReportFile DataReportFile(const std::filesystem::path& folder, const HeaderTexts& header)
{
    return {folder, NameOf(header, "num.dat")};
}

ReportFile WorkFile(const std::filesystem::path& folder)
{
    return {folder, "datiram.dat"};
}

} // namespace tarvex
