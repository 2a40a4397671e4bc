#include "platform/qt_file_dialog.h"

#include "core/failure.h"
#include "platform/qt_path.h"
#include "platform/qt_text.h"

#include <QApplication>

#include <system_error>

namespace tarvex::platform
{

namespace
{

/// Where a dialog starts: at the file chosen last, else in its folder, else where the program is.
std::filesystem::path StartOf(const FileDialog& dialog)
{
    if (!dialog.FileName.empty()) return dialog.FileName.parent_path();
    if (!dialog.InitDir.empty()) return dialog.InitDir;
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

} // namespace

QStringList NameFilters(std::string_view filter)
{
    QStringList filters;
    const QStringList parts = ToQString(filter).split(u'|');
    for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
        QString pattern = parts[part + 1];
        if (pattern == QLatin1String("*.*")) pattern = QStringLiteral("*");
        QString description = parts[part].section(u'(', 0, 0).trimmed();
        filters << description + QStringLiteral(" (") + pattern + u')';
    }
    return filters;
}

void QtFileDialog::ShowOpen()
{
    Show(QFileDialog::AcceptOpen, QFileDialog::ExistingFile);
}

void QtFileDialog::ShowSave()
{
    Show(QFileDialog::AcceptSave, QFileDialog::AnyFile);
}

void QtFileDialog::Show(QFileDialog::AcceptMode mode, QFileDialog::FileMode files)
{
    QFileDialog dialog(QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("CommonDialog1"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(files);
    const QStringList filters = NameFilters(Filter);
    dialog.setNameFilters(filters);
    if (FilterIndex >= 1 && FilterIndex <= filters.size()) {
        dialog.selectNameFilter(filters[FilterIndex - 1]);
    }
    const auto start = StartOf(*this);
    const SpelledFolder folder(start);
    if (folder.IsAlias()) dialog.setOption(QFileDialog::DontUseNativeDialog); // it is ours alone
    if (!start.empty()) dialog.setDirectory(folder.Spelling());
    if (!FileName.empty()) dialog.selectFile(PathToQString(FileName.filename()));
    StayOutOfTheAlias(dialog, folder, start);

    const bool chosen = dialog.exec() == QDialog::Accepted;
    if (end_.Ended()) throw ProgramEnded();
    if (chosen && !dialog.selectedFiles().isEmpty()) {
        FileName = folder.Behind(dialog.selectedFiles().constFirst());
    }
}

} // namespace tarvex::platform
