#pragma once

#include "core/path_text.h"

#include <QString>

#include <filesystem>
#include <string_view>

namespace tarvex::panel
{

/// A text of the sources, which are UTF-8.
inline QString FromSource(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A path or a name as windows show it.
inline QString FromPath(const std::filesystem::path& path)
{
    return QString::fromStdU16String(path_text::Unicode(path));
}

/// The path or name that the operator has typed.
inline std::filesystem::path ToPath(const QString& text)
{
    return path_text::FromUnicode(text.toStdU16String());
}

} // namespace tarvex::panel
