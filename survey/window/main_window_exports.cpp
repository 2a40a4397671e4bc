#include "survey/files/output_file.h"
#include "survey/files/report_names.h"
#include "survey/window/export_file.h"
#include "survey/window/main_window.h"
#include "survey/window/window_text.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

#include <stdexcept>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

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
    auto name = PathText(fs::path(survey.files.front()).stem());
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
                [&](const fs::path& part) {
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

/// While a dialog is open the folder may be read again: then the survey is gone, or another is
/// shown.
void MainWindow::HandOn(const fs::path& report, const std::function<std::string()>& work)
{
    if (chosen_.empty() || !AreOfOneSurvey(chosen_.back().files.front(), report))
        return Report(Shown(report) + " is no longer shown, and nothing was made of it");
    try {
        Report(work());
    } catch (const std::runtime_error& failure) {
        Report(failure.what());
    }
}

/// The path that the operator gives an export; empty when there is to be none.
fs::path MainWindow::AskForExport()
{
    const NamedFolder start(FirstFolder());
    QString form;
    auto path = QFileDialog::getSaveFileName(this, QStringLiteral("Export"),
                                             start.Name() + QLatin1Char('/') +
                                                 NameFor(chosen_.back()) + QStringLiteral(".pdf"),
                                             QString::fromLatin1(kExports), &form);
    if (path.isEmpty() || start.PathOf(path).has_extension()) return start.PathOf(path);
    const auto whole = start.PathOf(path + EndingOf(form));
    return MayReplace(whole) ? whole : fs::path();
}

/// The dialog has asked for the name as it was typed.
bool MainWindow::MayReplace(const fs::path& path)
{
    std::error_code error;
    if (!fs::exists(path, error)) return true;
    return QMessageBox::question(
               this, QStringLiteral("Export"),
               QStringLiteral("%1 is there already. Replace it?").arg(Text(Shown(path.filename()))),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

void MainWindow::Export()
{
    if (chosen_.empty()) return Report(whyNone_);
    const fs::path report = chosen_.back().files.front();
    const auto path = AskForExport();
    if (path.empty()) return;
    std::optional<std::string> remark = "";
    if (EndingOf(path) == ".pdf") remark = AskForRemark(QStringLiteral("Export"));
    if (!remark) return;
    HandOn(report, [&] {
        WriteAs(Subject(*remark), path);
        return "Written: " + Shown(path);
    });
}

void MainWindow::Print()
{
    if (chosen_.empty()) return Report(whyNone_);
    const fs::path report = chosen_.back().files.front();
    const auto remark = AskForRemark(QStringLiteral("Print"));
    if (!remark) return;
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    HandOn(report, [&] {
        PrintOn(printer, Subject(*remark));
        return std::string("Printed");
    });
}

} // namespace tarvex::survey
