#include "platform/qt_file_dialog.h"

#include "core/failure.h"
#include "platform/qt_text.h"

#include <QApplication>
#include <QFile>

namespace tarvex::platform
{

namespace
{

QString ToDialog(const std::filesystem::path& path)
{
    return QString::fromStdU16String(path.u16string());
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
    if (!InitDir.empty()) dialog.setDirectory(ToDialog(InitDir));
    if (!FileName.empty()) dialog.selectFile(ToDialog(FileName));

    const bool chosen = dialog.exec() == QDialog::Accepted;
    if (end_.Ended()) throw ProgramEnded();
    if (chosen && !dialog.selectedFiles().isEmpty()) {
        FileName = dialog.selectedFiles().constFirst().toStdU16String();
    }
}

} // namespace tarvex::platform
