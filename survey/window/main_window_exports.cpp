#include "survey/files/output_file.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/export_file.h"
#include "survey/window/main_window.h"
#include "survey/window/window_text.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QPrintDialog>
#include <QPrinter>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
constexpr const char* kExports = "One sheet (*.pdf);;Plots (*.svg);;Picture (*.png);;"
                                 "Spreadsheet (*.xlsx);;Table (*.csv);;Everything (*.json)";

/// The ending of a form's files, "Plots (*.svg)": of a name that has none of its own.
QString EndingOf(const QString& form)
{
    const auto from = form.indexOf(QLatin1Char('.'));
    return form.mid(from, form.size() - from - 1);
}

/// The name of a survey's files without what the manager puts after it.
QString NameFor(const Survey& survey)
{
    auto name = PathText(std::filesystem::path(survey.files.front()).stem());
    if (name.endsWith(QStringLiteral("-dat"), Qt::CaseInsensitive) ||
        name.endsWith(QStringLiteral("-num"), Qt::CaseInsensitive))
        name.chop(4);
    return name;
}

/// A file that stands for a printer is as safe from it as from an export.
void PrintOn(QPrinter& printer, const PictureSubject& subject)
{
    const auto file = printer.outputFileName();
    if (file.isEmpty()) return PrintSheet(subject, printer);
    WriteOutput(PathOf(file), {subject.survey.files.begin(), subject.survey.files.end()},
                [&](const std::filesystem::path& part) {
                    printer.setOutputFileName(PathText(part));
                    PrintSheet(subject, printer);
                });
}
} // namespace

/// The newest chosen survey; nothing has changed in it since itself.
PictureSubject MainWindow::Subject(const std::string& remark) const
{
    const bool changed = base_ && base_->files != chosen_.back().files;
    return {chosen_.back(), changed ? &*base_ : nullptr, verdict_, limits_, remark};
}

std::optional<std::string> MainWindow::AskForRemark(const QString& title)
{
    bool goOn = false;
    const auto remark =
        QInputDialog::getText(this, title, QStringLiteral("Remark for the sheet, or nothing:"),
                              QLineEdit::Normal, {}, &goOn);
    return goOn ? std::optional(Bytes(remark)) : std::nullopt;
}

void MainWindow::Export()
{
    if (chosen_.empty()) return Report(whyNone_);
    const NamedFolder start(FirstFolder());
    QString form;
    auto path = QFileDialog::getSaveFileName(this, QStringLiteral("Export"),
                                             start.Name() + QLatin1Char('/') +
                                                 NameFor(chosen_.back()) + QStringLiteral(".pdf"),
                                             QString::fromLatin1(kExports), &form);
    if (path.isEmpty()) return;
    if (!start.PathOf(path).has_extension()) path += EndingOf(form);
    ExportTo(start.PathOf(path));
}

void MainWindow::ExportTo(const std::filesystem::path& path)
{
    std::optional<std::string> remark = "";
    if (path.extension() == ".pdf") remark = AskForRemark(QStringLiteral("Export"));
    if (!remark) return;
    try {
        WriteAs(Subject(*remark), path);
        Report("Written: " + Shown(path));
    } catch (const Refusal& refusal) {
        Report(refusal.what());
    }
}

void MainWindow::Print()
{
    if (chosen_.empty()) return Report(whyNone_);
    const auto remark = AskForRemark(QStringLiteral("Print"));
    if (!remark) return;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    try {
        PrintOn(printer, Subject(*remark));
        Report("Printed");
    } catch (const std::runtime_error& failure) {
        Report(failure.what());
    }
}

} // namespace tarvex::survey
