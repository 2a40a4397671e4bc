#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex::path_text
{

/// The one door between paths and Unicode. A path is the system's own bytes: on many systems any
/// bytes, also those that are no UTF-8, as on a disk of an older machine. Nothing here fails.

/// The path as far as it can be shown, with U+FFFD for what makes no character. Only a path that
/// IsUnicode is found again by this text.
std::u16string Unicode(const std::filesystem::path& path);

/// The path that a text names, with U+FFFD for half a surrogate pair where paths are bytes.
std::filesystem::path FromUnicode(std::u16string_view text);

/// True when the path's text leads back to the same path.
bool IsUnicode(const std::filesystem::path& path);

/// The path for a library that takes bytes: the system's own bytes where paths are bytes, else
/// UTF-8.
std::string ForLibrary(const std::filesystem::path& path);

/// The path that such a library gave.
std::filesystem::path FromLibrary(std::string_view bytes);

} // namespace tarvex::path_text
