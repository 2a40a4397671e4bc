#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace tarvex::platform
{

/// The program's text (Windows-1252, one byte a character) as the toolkit's. All 256 bytes have a
/// character, NUL and the control bytes too.
QString ToQString(std::string_view bytes);

/// The way back: one byte a character; a character outside the code page, also one of two
/// surrogates, becomes one "?".
std::string ToBytes(const QString& text);

} // namespace tarvex::platform
