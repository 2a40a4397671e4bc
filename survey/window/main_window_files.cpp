#include "survey/window/main_window.h"

#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/export_file.h"
#include "survey/window/window_text.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QMenuBar>
#include <QPrintDialog>
#include <QPrinter>

#include <stdexcept>

namespace tarvex::survey
{

namespace
{
constexpr const char* kExports = "One sheet (*.pdf);;Plots (*.svg);;Picture (*.png);;"
                                 "Spreadsheet (*.xlsx);;Table (*.csv);;Everything (*.json)";
} // namespace

void MainWindow::BuildMenus()
{
    auto* menu = menuBar()->addMenu(QStringLiteral("&File"));
    const auto add = [&](const QString& text, const QKeySequence& keys, auto handler) {
        auto* const action = menu->addAction(text, this, handler);
        action->setShortcut(keys);
    };
    add(QStringLiteral("&Open reports..."), QKeySequence::Open, [this] { AskForFile(); });
    add(QStringLiteral("Open &folder..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O),
        [this] { AskForFolder(); });
    menu->addSeparator();
    add(QStringLiteral("&Export..."), QKeySequence(Qt::CTRL | Qt::Key_E), [this] { Export(); });
    add(QStringLiteral("&Print..."), QKeySequence::Print, [this] { Print(); });
    menu->addSeparator();
    add(QStringLiteral("&Quit"), QKeySequence::Quit, [this] { close(); });
    menu = menuBar()->addMenu(QStringLiteral("&View"));
    add(QStringLiteral("&Reasons for the verdict..."), QKeySequence(Qt::CTRL | Qt::Key_R),
        [this] { ShowReasons(); });
}

/// Where the file dialogs begin.
std::filesystem::path MainWindow::FirstFolder() const
{
    return folders_.empty() ? std::filesystem::path() : folders_.front();
}

void MainWindow::AskForFolder()
{
    const NamedFolder start(FirstFolder());
    const auto folder =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Open folder"), start.Name());
    if (!folder.isEmpty()) Open({start.PathOf(folder)});
}

void MainWindow::AskForFile()
{
    const NamedFolder start(FirstFolder());
    const auto files = QFileDialog::getOpenFileNames(
        this, QStringLiteral("Open reports"), start.Name(),
        QStringLiteral(
            "Reports (*-dat.dat *-num.dat *-DAT.DAT *-NUM.DAT datiram.dat);;All files (*)"));
    std::vector<std::filesystem::path> paths;
    for (const auto& file : files)
        paths.push_back(start.PathOf(file));
    if (!paths.empty()) Open(paths);
}

/// The newest chosen survey; nothing has changed in it since itself.
PictureSubject MainWindow::Subject(const std::string& remark) const
{
    const bool changed = base_ && base_->files != chosen_.back().files;
    return {chosen_.back(), changed ? &*base_ : nullptr, verdict_, limits_, remark};
}

void MainWindow::Export()
{
    if (chosen_.empty()) return Report("No survey is chosen");
    const NamedFolder start(FirstFolder());
    const auto path = QFileDialog::getSaveFileName(this, QStringLiteral("Export"), start.Name(),
                                                   QString::fromLatin1(kExports));
    if (!path.isEmpty()) ExportTo(start.PathOf(path));
}

void MainWindow::ExportTo(const std::filesystem::path& path)
{
    bool goOn = true;
    std::string remark;
    if (path.extension() == ".pdf")
        remark = Bytes(QInputDialog::getText(this, QStringLiteral("Export"),
                                             QStringLiteral("Remark for the sheet:"),
                                             QLineEdit::Normal, {}, &goOn));
    if (!goOn) return;
    try {
        WriteAs(Subject(remark), path);
        Report("Written: " + Shown(path));
    } catch (const Refusal& refusal) {
        Report(refusal.what());
    }
}

void MainWindow::Print()
{
    if (chosen_.empty()) return Report("No survey is chosen");
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    try {
        PrintSheet(Subject({}), printer);
    } catch (const std::runtime_error& failure) {
        Report(failure.what());
    }
}

} // namespace tarvex::survey
