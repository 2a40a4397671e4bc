#include "survey/window/main_window.h"

#include <QFileDialog>
#include <QMenuBar>

namespace tarvex::survey
{

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

} // namespace tarvex::survey
