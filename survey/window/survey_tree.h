#pragma once

#include "survey/files/listed_survey.h"

#include <QItemSelectionModel>
#include <QSet>
#include <QStringList>
#include <QTreeWidget>

#include <cstddef>
#include <vector>

namespace tarvex::survey
{

/// Surveys as a tree of client, site, tube and readout.
class SurveyTree : public QTreeWidget
{
public:
    /// An empty tree.
    explicit SurveyTree(QWidget* parent);

    /// Shows these surveys, with none chosen and without a signal. What was closed stays so.
    void Show(const std::vector<ListedSurvey>& listed);

    /// Chooses these surveys, by their numbers in the list, without a signal.
    void Choose(const std::vector<std::size_t>& numbers);

    /// The numbers of the chosen surveys, in order of the list.
    std::vector<std::size_t> Chosen() const;

    /// Wide enough for a reading's line.
    QSize sizeHint() const override;

protected:
    /// What is chosen stays so while the keys or the pointer are at a client, site or tube.
    QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event = nullptr) const override;

private:
    QSet<QStringList> Closed();
};

} // namespace tarvex::survey
