#pragma once

#include "survey/checks/check_limits.h"
#include "survey/checks/verdict.h"
#include "survey/files/listed_survey.h"
#include "survey/model/survey.h"
#include "survey/window/folder_watch.h"
#include "survey/window/row_model.h"

#include <QMainWindow>

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QLayout;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QTableView;

namespace tarvex::survey
{

class CutLabel;
class HintPage;
class PlotView;
class SurveyTree;
class VerdictLine;
struct PictureSubject;

/// The size of the window where its screen has room for it.
inline constexpr QSize kUsualSize(1100, 760);

/// The surveys of a folder as a tree, and what the chosen ones show.
class MainWindow : public QMainWindow
{
public:
    MainWindow();

    /// Shows the surveys of folders, and of the folders that reports lie in, and watches them with
    /// all within. Chooses the reports, or the last survey where no report is among the paths. A
    /// file that is no report is named in the status line; nothing else changes when all are such.
    void Open(const std::vector<std::filesystem::path>& paths);

    /// Shows a sentence in the status line, for some seconds in place of the pointed values.
    void Report(const std::string& sentence);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    void BuildCentre();
    QWidget* BuildSurveys();
    QWidget* BuildSide();
    QWidget* BuildVerdict();
    QLayout* BuildChoices(QWidget* parent);
    void BuildTable(QWidget* parent);
    int WidthOf(const QString& title) const;
    void FitColumns();
    void BuildValues();
    void Relist();
    void List();
    void AddOpened(const std::filesystem::path& report);
    void Choose(const std::vector<std::filesystem::path>& paths);
    void ShowChosen();
    void ShowVerdict();
    void ShowHint();
    void ShowReasons();
    void LeaveRoomForVerdict();
    void WatchFiles(std::vector<std::filesystem::path> first);
    void LoadChosen();
    void FillBases();
    void AddBase(std::size_t number);
    void ShowPlots();
    void ShowBase();
    void ReportOfBase(const std::string& sentence);
    Survey SurveyAt(const std::filesystem::path& path) const;
    void PointToDepth(double tenths);
    void PointAgain();
    void AskForFolder();
    void AskForFile();
    void Export();
    std::filesystem::path AskForExport();
    bool MayReplace(const std::filesystem::path& path);
    void HandOn(const std::filesystem::path& report, const std::function<std::string()>& work);
    void Print();
    std::optional<std::string> AskForRemark(const QString& title);
    PictureSubject Subject(const std::string& remark) const;
    std::filesystem::path FirstFolder() const;
    std::vector<std::filesystem::path> ChosenPaths() const;

    static constexpr const char* kNoneChosen = "No survey is chosen";

    std::vector<std::filesystem::path> folders_;
    std::vector<std::filesystem::path> opened_; ///< reports that were asked for by themselves
    std::vector<ListedSurvey> listed_;
    std::vector<Survey> chosen_;        // the newest last
    std::string whyNone_ = kNoneChosen; // why there are none of them
    std::optional<Survey> base_;
    std::filesystem::path basePath_; // stays while the base cannot be read
    std::string saidOfBase_;         // and of what
    Verdict verdict_;
    Limits limits_;
    FolderWatch watch_;
    SurveyTree* tree_ = nullptr;
    QWidget* verdictRow_ = nullptr;
    VerdictLine* verdictLine_ = nullptr;
    QPushButton* reasons_ = nullptr;
    QStackedWidget* pages_ = nullptr; // the surveys; the hint where there are none
    HintPage* hint_ = nullptr;        // made when it is first needed
    QTabBar* kinds_ = nullptr;
    QComboBox* bases_ = nullptr;
    PlotView* plot_ = nullptr;
    QTableView* table_ = nullptr;
    CutLabel* values_ = nullptr; // of the depth that is pointed to
    RowModel rows_;
};

} // namespace tarvex::survey
