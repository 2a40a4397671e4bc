#include "survey/window/main_window.h"

#include "survey/checks/check.h"
#include "survey/checks/verdict_text.h"
#include "survey/files/load.h"
#include "survey/files/refusal.h"
#include "survey/files/report_names.h"
#include "survey/window/window_text.h"

#include <QLabel>
#include <QTabBar>
#include <QTableView>

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
    for (const auto& path : ChosenPaths())
        try {
            chosen_.push_back(Load(path));
        } catch (const Refusal& refusal) {
            Report(refusal.what());
        }
}

void MainWindow::ShowChosen()
{
    WatchFiles(ChosenPaths()); // before they are read, so that nothing written meanwhile is missed
    LoadChosen();
    FillBases();
    if (chosen_.empty()) {
        verdict_ = {};
        verdictLine_->setText(QStringLiteral("No survey is chosen"));
        rows_.Clear();
    } else {
        verdict_ = Check(chosen_.back(), limits_);
        verdictLine_->setText(Text("Verdict: " + verdict_.Line()));
        verdictLine_->setToolTip(Text(TextOf(verdict_)));
        rows_.Show(chosen_.back(), verdict_);
    }
    ShowBase();
}

void MainWindow::ShowPlots()
{
    std::vector<const Survey*> surveys;
    for (const auto& survey : chosen_)
        surveys.push_back(&survey);
    const auto kind = kPlotKinds[static_cast<std::size_t>(kinds_->currentIndex())].kind;
    plot_->Show(PageOf(kind, surveys, base_ ? &*base_ : nullptr, limits_));
}

void MainWindow::PointToDepth(double tenths)
{
    const int row = rows_.RowNear(tenths);
    if (row < 0) return;
    table_->selectRow(row);
    QStringList values;
    for (int column = 0; column < rows_.columnCount(); ++column) {
        const auto name = rows_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const auto value = rows_.data(rows_.index(row, column), Qt::DisplayRole).toString();
        if (!value.isEmpty()) values += name + QLatin1Char(' ') + value;
    }
    values_->setText(values.join(QStringLiteral("   ")));
}

} // namespace tarvex::survey
