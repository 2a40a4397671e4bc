#include "survey/window/main_window.h"

#include "survey/files/listing.h"
#include "survey/files/load.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/window_text.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>

#include <algorithm>
#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// The file dialogs would keep their history in a file of the operator's home; nothing can be
/// written here.
void KeepNoSettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}
} // namespace

MainWindow::MainWindow() : watch_([this] { Relist(); })
{
    KeepNoSettings();
    setWindowTitle(QStringLiteral("Tar Vex Survey"));
    setObjectName(QStringLiteral("survey"));
    setAcceptDrops(true);
    BuildCentre();
    BuildMenus();
    BuildValues();
    resize(1100, 760);
}

void MainWindow::OpenFolder(const fs::path& folder)
{
    folder_ = folder;
    Relist();
}

void MainWindow::OpenFile(const fs::path& file)
{
    try {
        Load(file); // a refusal before the folder is changed
    } catch (const Refusal& refusal) {
        return Report(refusal.what());
    }
    opened_ = file;
    const auto folder = file.parent_path();
    OpenFolder(folder.empty() ? "." : folder);
    Choose({file});
}

void MainWindow::Relist()
{
    const auto before = ChosenPaths();
    watch_.Follow(folder_);
    try {
        listed_ = ListFolder(folder_);
    } catch (const Refusal& refusal) {
        listed_.clear();
        Report(refusal.what());
    }
    AddOpened();
    tree_->Show(listed_);
    if (!before.empty())
        Choose(before);
    else if (!listed_.empty())
        Choose({listed_.back().path});
}

/// A work file, or a report under another name, is listed by its name alone.
void MainWindow::AddOpened()
{
    std::error_code error;
    if (opened_.empty() || !fs::exists(opened_, error)) return;
    for (const auto& listed : listed_)
        if (AreOfOneSurvey(listed.path, opened_)) return;
    Head head;
    head.client = "Other files";
    head.site = Shown(opened_.parent_path());
    head.tube = Shown(opened_.filename());
    listed_.push_back({opened_, head, false, true});
}

void MainWindow::Choose(const std::vector<fs::path>& paths)
{
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < listed_.size(); ++i)
        if (std::ranges::any_of(
                paths, [&](const auto& path) { return AreOfOneSurvey(listed_[i].path, path); }))
            numbers.push_back(i);
    tree_->Choose(numbers);
    ShowChosen(); // once: the tree says nothing of it
}

std::vector<fs::path> MainWindow::ChosenPaths() const
{
    std::vector<fs::path> paths;
    for (const auto number : tree_->Chosen())
        paths.push_back(listed_[number].path);
    return paths;
}

void MainWindow::Report(const std::string& sentence)
{
    constexpr int kTimeToRead = 10'000; // ms
    statusBar()->showMessage(Text(sentence), kTimeToRead);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    for (const auto& url : event->mimeData()->urls()) {
        if (!url.isLocalFile()) continue;
        const auto path = PathOf(url);
        std::error_code error;
        if (fs::is_directory(path, error))
            OpenFolder(path);
        else
            OpenFile(path);
        event->acceptProposedAction();
        return;
    }
}

} // namespace tarvex::survey
