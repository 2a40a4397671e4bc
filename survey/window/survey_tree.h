#pragma once

#include "survey/files/listed_survey.h"

#include <QTreeWidget>

#include <cstddef>
#include <functional>
#include <vector>

namespace tarvex::survey
{

/// Surveys as a tree of client, site, tube and readout.
class SurveyTree : public QTreeWidget
{
public:
    /// An empty tree.
    explicit SurveyTree(QWidget* parent);

    /// Shows these surveys, with none chosen and without a signal.
    void Show(const std::vector<ListedSurvey>& listed);

    /// Chooses the first survey, by its number in the list, that `is` says yes to; without a signal.
    void ChooseFirst(const std::function<bool(std::size_t)>& is);

    /// The numbers of the chosen surveys, in order of the list.
    std::vector<std::size_t> Chosen() const;
};

} // namespace tarvex::survey
