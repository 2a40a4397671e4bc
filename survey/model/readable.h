#pragma once

#include <string>
#include <string_view>

namespace tarvex::survey
{

/// How the bytes of a report are to be understood.
enum class Encoding { Windows1252, Utf8 };

/// Text for people, in UTF-8. Bytes that would move a terminal's cursor, and those that are no
/// text, become the replacement character.
std::string Readable(std::string_view bytes, Encoding encoding = Encoding::Windows1252);

} // namespace tarvex::survey
