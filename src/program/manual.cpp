#include "program/manual.h"

#include "platform/text/qt_text.h"

#include <QApplication>
#include <QDesktopServices>
#include <QToolTip>
#include <QUrl>
#include <QWidget>

#include <system_error>

namespace tarvex
{

namespace
{

constexpr const char* kManualFromBuiltProgram = "../packaging/documents/manual.html";

bool Show(const std::filesystem::path& page)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(PathToQString(page)));
}

void Tip(const QString& text)
{
    const QWidget* window = QApplication::activeWindow();
    if (window == nullptr) return;
    const QPoint middle = window->mapToGlobal(window->rect().center());
    QToolTip::showText(middle, text);
}

} // namespace

const char* const kManualFromProgram = TARVEX_MANUAL;

std::filesystem::path InstalledManual(const std::filesystem::path& programFolder)
{
    for (const char* place : {kManualFromProgram, kManualFromBuiltProgram}) {
        std::error_code missing;
        auto page = std::filesystem::weakly_canonical(programFolder / place, missing);
        if (!missing && std::filesystem::is_regular_file(page, missing)) return page;
    }
    return {};
}

void OpenInstalledManual(const std::filesystem::path& programFolder)
{
    const auto page = InstalledManual(programFolder);
    if (page.empty()) return Tip(QStringLiteral("The manual is not installed."));
    if (!Show(page))
        Tip(QStringLiteral("Nothing here can show the manual: ") + PathToQString(page));
}

} // namespace tarvex
