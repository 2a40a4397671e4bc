#pragma once

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
    const auto utf8 = path.u8string();
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace tarvex::panel
