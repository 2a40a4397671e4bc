#include "platform/qt_shell.h"

#include "platform/text/qt_text.h"

#include <QDesktopServices>
#include <QUrl>

namespace tarvex::platform
{

namespace
{

QUrl UrlOf(const QString& file)
{
    return file.contains("://") ? QUrl(file) : QUrl::fromLocalFile(file);
}

} // namespace

void QtShell::Execute(const ShellRequest& request)
{
    if (request.operation != "open") return;
    QDesktopServices::openUrl(UrlOf(ToQString(request.file)));
}

} // namespace tarvex::platform
