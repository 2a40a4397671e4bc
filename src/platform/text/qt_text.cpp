#include "platform/text/qt_text.h"

#include "core/code_page.h"
#include "core/path_text.h"

namespace tarvex
{

QString ToQString(std::string_view bytes)
{
    return QString::fromStdU16String(code_page::ToUtf16(bytes));
}

std::string ToBytes(const QString& text)
{
    return code_page::FromUtf16(text.toStdU16String());
}

QString Literal(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString PathToQString(const std::filesystem::path& path)
{
    return QString::fromStdU16String(path_text::Unicode(path));
}

std::filesystem::path PathFromQString(const QString& text)
{
    return path_text::FromUnicode(text.toStdU16String());
}

} // namespace tarvex
