#include "panel/window_text.h"

#include "core/code_page.h"

namespace tarvex::panel
{

QString ToWindow(std::string_view bytes)
{
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes)
        text += QChar(static_cast<char16_t>(code_page::ToUnicode(byte)));
    return text;
}

std::string FromWindow(const QString& text)
{
    std::string bytes;
    for (const char32_t character : text.toStdU32String())
        bytes += code_page::FromUnicode(character);
    return bytes;
}

} // namespace tarvex::panel
