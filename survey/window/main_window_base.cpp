#include "survey/window/main_window.h"

#include "survey/comparison/compare.h"
#include "survey/files/load.h"
#include "survey/files/report_names.h"
#include "survey/window/window_text.h"

#include <QComboBox>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvex::survey
{

/// Only readings of the same tube can be a base; the first of them is, until another is chosen.
void MainWindow::FillBases()
{
    bases_->clear();
    int chosen = 0;
    if (!chosen_.empty() && chosen_.back().head) {
        const auto& head = *chosen_.back().head;
        for (std::size_t i = 0; i < listed_.size(); ++i) {
            const auto& other = listed_[i].head;
            if (other.client != head.client || other.site != head.site || other.tube != head.tube)
                continue;
            if (AreOfOneSurvey(listed_[i].path, basePath_)) chosen = bases_->count();
            AddBase(i);
        }
    }
    bases_->setCurrentIndex(bases_->count() > 0 ? chosen : -1);
    bases_->setEnabled(bases_->count() > 1);
}

/// A readout may have been taken twice on one day.
void MainWindow::AddBase(std::size_t number)
{
    const auto& listed = listed_[number];
    auto text = Text(listed.head.readout + "  " + listed.head.date);
    if (bases_->findText(text) >= 0) text += Text("  " + listed.head.time);
    bases_->addItem(text, static_cast<int>(number));
    bases_->setItemData(bases_->count() - 1, Text(Shown(listed.path)), Qt::ToolTipRole);
}

/// One that is on view already is not read again.
Survey MainWindow::SurveyAt(const std::filesystem::path& path) const
{
    const auto known = std::ranges::find_if(
        chosen_, [&](const Survey& survey) { return survey.files.front() == path.native(); });
    return known != chosen_.end() ? *known : Load(path);
}

/// Once: whenever something comes into the folder it is read again, and what else was said stays.
void MainWindow::ReportOfBase(const std::string& sentence)
{
    const auto shown = chosen_.empty() ? std::string() : chosen_.back().files.front();
    auto said = shown + "\n" + basePath_.native() + "\n" + sentence;
    if (said == saidOfBase_) return;
    saidOfBase_ = std::move(said);
    if (!sentence.empty()) Report(sentence);
}

void MainWindow::ShowBase()
{
    std::string sentence;
    base_.reset();
    if (const auto number = bases_->currentData(); number.isValid() && !chosen_.empty()) try {
            auto onView = ChosenPaths();
            basePath_ = listed_[static_cast<std::size_t>(number.toInt())].path;
            onView.push_back(basePath_);
            WatchFiles(onView);
            base_ = SurveyAt(onView.back());
            const auto comparison = Compare(*base_, chosen_.back(), SumFrom::Bottom);
            if (!comparison.refusal.empty()) {
                sentence = "The base is of another tube: " + comparison.refusal;
                base_.reset();
            } else if (!comparison.notes.empty()) {
                sentence = "Compared with the base: " + comparison.notes.front();
            }
        } catch (const Refusal& refusal) {
            sentence = refusal.what();
        }
    ReportOfBase(sentence);
    ShowPlots();
}

} // namespace tarvex::survey
