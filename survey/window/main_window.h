#pragma once

#include "survey/checks/check_limits.h"
#include "survey/checks/verdict.h"
#include "survey/files/listed_survey.h"
#include "survey/window/folder_watch.h"
#include "survey/window/plot_view.h"
#include "survey/window/row_model.h"
#include "survey/window/survey_tree.h"

#include <QMainWindow>

#include <filesystem>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLayout;
class QTabBar;
class QTableView;

namespace tarvex::survey
{

/// The surveys of a folder as a tree, and what the chosen ones show.
class MainWindow : public QMainWindow
{
public:
    MainWindow();

    /// Shows the surveys of a folder and watches it, with the folders in it.
    void OpenFolder(const std::filesystem::path& folder);

    /// Shows the folder of a report and chooses that report; a file that is no report is named
    /// in the status line.
    void OpenFile(const std::filesystem::path& file);

    /// Shows a sentence in the status line, for some seconds in place of the pointed values.
    void Report(const std::string& sentence);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    void BuildCentre();
    QWidget* BuildSide();
    QWidget* BuildVerdict(QWidget* parent);
    QLayout* BuildChoices(QWidget* parent);
    void BuildTable(QWidget* parent);
    void BuildValues();
    void Relist();
    void AddOpened();
    void Choose(const std::vector<std::filesystem::path>& paths);
    void ShowChosen();
    void WatchFiles(std::vector<std::filesystem::path> first);
    void LoadChosen();
    void FillBases();
    void ShowPlots();
    void ShowBase();
    void PointToDepth(double tenths);
    void AskForFolder();
    void AskForFile();
    void Export();
    void ExportTo(const std::filesystem::path& path);
    void Print();
    std::vector<std::filesystem::path> ChosenPaths() const;

    std::filesystem::path folder_;
    std::filesystem::path opened_; ///< a report that was asked for by itself
    std::vector<ListedSurvey> listed_;
    std::vector<Survey> chosen_; // the newest last
    std::optional<Survey> base_;
    Verdict verdict_;
    Limits limits_;
    FolderWatch watch_;
    SurveyTree* tree_ = nullptr;
    QLabel* verdictLine_ = nullptr;
    QTabBar* kinds_ = nullptr;
    QComboBox* bases_ = nullptr;
    PlotView* plot_ = nullptr;
    QTableView* table_ = nullptr;
    QLabel* values_ = nullptr; // of the depth that is pointed to
    RowModel rows_;
};

} // namespace tarvex::survey
