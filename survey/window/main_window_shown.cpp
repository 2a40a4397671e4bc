#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include "survey/files/load.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"

#include <QTabBar>

namespace tarvex::survey
{

/// The reports of these surveys, then of all that the tree lists.
void MainWindow::WatchFiles(std::vector<std::filesystem::path> first)
{
    for (const auto& listed : listed_)
        if (first.size() < FolderWatch::kMostFiles) first.push_back(listed.path);
    std::vector<std::filesystem::path> files;
    for (const auto& survey : first) {
        files.push_back(survey);
        if (const auto partner = PartnerOf(survey)) files.push_back(*partner);
    }
    watch_.FollowFiles(files);
}

void MainWindow::LoadChosen()
{
    chosen_.clear();
    whyNone_ = kNoneChosen;
    for (const auto& path : ChosenPaths())
        try {
            chosen_.push_back(Load(path));
        } catch (const Refusal& refusal) {
            whyNone_ = refusal.what();
            Report(whyNone_);
        }
}

void MainWindow::ShowChosen()
{
    WatchFiles(ChosenPaths()); // before they are read, so that nothing written meanwhile is missed
    LoadChosen();
    FillBases();
    ShowVerdict();
    ShowBase();
    PointAgain();
}

void MainWindow::ShowPlots()
{
    std::vector<const Survey*> surveys;
    for (const auto& survey : chosen_)
        surveys.push_back(&survey);
    const auto kind = kPlotKinds[static_cast<std::size_t>(kinds_->currentIndex())].kind;
    plot_->Show(PageOf(kind, surveys, base_ ? &*base_ : nullptr, limits_));
}

} // namespace tarvex::survey
