#include "survey/window/main_window.h"
#include "survey/window/survey_tree.h"

#include "survey/files/listing.h"
#include "survey/files/listing_order.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/fit_screen.h"
#include "survey/window/kept_view.h"
#include "survey/window/window_text.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTableView>

#include <algorithm>
#include <iterator>
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
    ShowVerdict();
    resize(kUsualSize.boundedTo(FreeSize(*this)));
    LeaveRoomForVerdict();
}

/// The last moment before the window is shown: only then is it known whether it needs its hint, for
/// which the size must have room.
bool MainWindow::event(QEvent* event)
{
    if (event->type() == QEvent::Polish) {
        ShowHint();
        resize(size().expandedTo(sizeHint()).boundedTo(FreeSize(*this)));
    }
    return QMainWindow::event(event);
}

void MainWindow::showEvent(QShowEvent* event)
{
    if (!listed_.empty()) tree_->setFocus();
    QMainWindow::showEvent(event);
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    LeaveRoomForVerdict();
}

void MainWindow::Relist()
{
    const auto before = ChosenPaths();
    const KeptView view(*plot_, *table_);
    List();
    if (!before.empty())
        Choose(before);
    else if (!listed_.empty())
        Choose({listed_.back().path});
    if (ChosenPaths() == before) view.PutBack(*plot_, *table_);
}

void MainWindow::List()
{
    watch_.Follow(folders_);
    listed_.clear();
    for (const auto& folder : folders_)
        try {
            std::ranges::move(ListFolder(folder), std::back_inserter(listed_));
        } catch (const Refusal& refusal) {
            Report(refusal.what());
        }
    if (folders_.size() > 1) listed_ = Sorted(std::move(listed_));
    for (const auto& report : opened_)
        AddOpened(report);
    tree_->Show(listed_);
    ShowHint();
}

/// A work file, or a report under another name, is listed by its name alone.
void MainWindow::AddOpened(const fs::path& report)
{
    std::error_code error;
    if (!fs::exists(report, error)) return;
    for (const auto& listed : listed_)
        if (AreOfOneSurvey(listed.path, report)) return;
    Head head;
    head.client = "Other files";
    head.site = Shown(report.parent_path());
    head.tube = Shown(report.filename());
    listed_.push_back({report, head, false, true});
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
    std::vector<fs::path> paths;
    for (const auto& url : event->mimeData()->urls())
        if (url.isLocalFile()) paths.push_back(PathOf(url));
    if (paths.empty()) return;
    event->acceptProposedAction();
    Open(paths);
}

} // namespace tarvex::survey
