#include "platform/qt_file_dialog.h"

#include "core/failure.h"
#include "platform/qt_path.h"
#include "platform/text/qt_text.h"

#include <QApplication>
#include <QComboBox>
#include <QScreen>
#include <QSettings>
#include <QStringList>

#include <system_error>

namespace tarvex::platform
{

namespace
{

constexpr QSize kWindowFrame(8, 36); // what window managers put around

/// Where a dialog starts: at the file chosen last, else in its folder, else where the program is.
std::filesystem::path StartOf(const FileDialog& dialog)
{
    if (!dialog.fileName.empty()) return dialog.fileName.parent_path();
    if (!dialog.initDir.empty()) return dialog.initDir;
    std::error_code gone;
    return std::filesystem::current_path(gone);
}

/// The folder above an alias is one that means nothing to the operator.
void StayOutOfTheAlias(QFileDialog& dialog, const SpelledFolder& folder,
                       const std::filesystem::path& start)
{
    if (!folder.IsAlias()) return;
    const QString above = folder.Spelling().section(u'/', 0, -2);
    QObject::connect(&dialog, &QFileDialog::directoryEntered, &dialog,
                     [&dialog, above, start](const QString& entered) {
                         if (entered == above)
                             dialog.setDirectory(PathToQString(NearestUnicode(start)));
                     });
}

/// The dialog would keep its history in a file of the operator's home; nothing can be written here.
void KeepNoSettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

/// The toolkit cuts the blanks off a filter's text, and reads the pattern from it: so both are
/// given in its own form first, and the texts follow. `chosen` counts from 1.
void SetFilters(QFileDialog& dialog, const std::vector<NameFilter>& filters, int chosen)
{
    QStringList patterns;
    for (const NameFilter& filter : filters)
        patterns << u'(' + filter.pattern + u')';
    dialog.setNameFilters(patterns);
    if (chosen >= 1 && chosen <= patterns.size()) dialog.selectNameFilter(patterns[chosen - 1]);
    auto* const kinds = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    for (std::size_t index = 0; index < filters.size(); ++index)
        kinds->setItemText(static_cast<int>(index), filters[index].text);
}

} // namespace

std::vector<NameFilter> NameFilters(std::string_view filter)
{
    std::vector<NameFilter> filters;
    const QStringList parts = ToQString(filter).split(u'|');
    for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
        QString pattern = parts[part + 1];
        if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
        filters.push_back({parts[part], pattern});
    }
    return filters;
}

QtFileDialog::QtFileDialog(const ProgramEnd& end) : end_(end)
{
    KeepNoSettings();
}

void QtFileDialog::ShowOpen(std::string_view title)
{
    QFileDialog dialog(QApplication::activeWindow(), ToQString(title));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    Show(dialog);
}

void QtFileDialog::ShowSave(std::string_view title, Fate fate)
{
    QFileDialog dialog(QApplication::activeWindow(), ToQString(title));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, fate == Fate::LeftAlone);
    Show(dialog);
}

void QtFileDialog::SetUp(QFileDialog& dialog) const
{
    dialog.setObjectName(QStringLiteral("CommonDialog1"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    SetFilters(dialog, NameFilters(filter), filterIndex);
}

void QtFileDialog::Show(QFileDialog& dialog)
{
    SetUp(dialog);
    const auto start = StartOf(*this);
    const SpelledFolder folder(start);
    if (!start.empty()) dialog.setDirectory(folder.Spelling());
    if (!fileName.empty()) dialog.selectFile(PathToQString(fileName.filename()));
    StayOutOfTheAlias(dialog, folder, start);

    const QSize free = dialog.screen()->availableSize() - kWindowFrame;
    dialog.resize(dialog.sizeHint().boundedTo(free));

    const bool chosen = dialog.exec() == QDialog::Accepted;
    if (end_.Ended()) throw ProgramEnded();
    if (chosen && !dialog.selectedFiles().isEmpty()) {
        fileName = folder.PathOf(dialog.selectedFiles().constFirst());
    }
}

} // namespace tarvex::platform
