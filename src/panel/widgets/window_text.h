#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvex::panel
{

/// The program's single-byte text (Windows-1252) as the window shows it. All 256 bytes survive the
/// way there and back.
QString ToWindow(std::string_view bytes);

/// Text of the window in single bytes, "?" for each character that has none.
std::string FromWindow(const QString& text);

/// A text of the tables, which is UTF-8.
inline QString Literal(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace tarvex::panel
