#include "panel/widgets/window_text.h"

#include "core/code_page.h"

namespace tarvex::panel
{

QString ToWindow(std::string_view bytes)
{
    return QString::fromStdU16String(code_page::ToUtf16(bytes));
}

std::string FromWindow(const QString& text)
{
    return code_page::FromUtf16(text.toStdU16String());
}

} // namespace tarvex::panel
