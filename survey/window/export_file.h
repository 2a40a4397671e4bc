#pragma once

#include "survey/window/picture.h"

#include <filesystem>

namespace tarvex::survey
{

/// How a path ends, in small letters: ".pdf".
std::string EndingOf(const std::filesystem::path& path);

/// Writes an export in the form that the ending of its path names: pdf, svg, png, xlsx, csv or
/// json. Throws Refusal, with nothing changed, for any other and when it cannot be written.
void WriteAs(const PictureSubject& subject, const std::filesystem::path& path);

} // namespace tarvex::survey
