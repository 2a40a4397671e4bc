#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex
{

/// The program's text (Windows-1252, one byte a character) as the toolkit's. All 256 bytes have a
/// character, NUL and the control bytes too.
QString ToQString(std::string_view bytes);

/// The way back: one byte a character; a character outside the code page, also one of two
/// surrogates, becomes one "?".
std::string ToBytes(const QString& text);

/// A text of the sources and their tables, which is UTF-8.
QString Literal(std::string_view utf8);

/// A path or a name as far as it can be shown.
QString PathToQString(const std::filesystem::path& path);

/// The path or name that a text of the toolkit, or one that the operator has typed, names.
std::filesystem::path PathFromQString(const QString& text);

} // namespace tarvex
