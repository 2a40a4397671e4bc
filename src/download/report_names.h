#pragma once

#include "core/header_boxes.h"

#include <filesystem>
#include <string>

namespace tarvex
{

/// A file in the report folder. Its name may be made of header values as the unit holds them, so
/// that it is refused when it would reach outside the folder.
struct ReportFile {
    std::filesystem::path folder;
    std::string name; ///< one byte a character

    /// Folder, separator and name, as the panel shows them.
    std::string Shown() const;

    /// Where the file lies. Fails when the name holds a path separator or a NUL, and on Windows
    /// when it is that of a device, or a colon makes it a part of another file.
    std::filesystem::path Path() const;
};

/// "client-site-tube-readout-dat.dat", every blank kept.
ReportFile HeadReportFile(const std::filesystem::path& folder, const HeaderTexts& header);

/// "client-site-tube-readout-num.dat", every blank kept.
ReportFile DataReportFile(const std::filesystem::path& folder, const HeaderTexts& header);

/// "datiram.dat".
ReportFile WorkFile(const std::filesystem::path& folder);

} // namespace tarvex
