#pragma once

#include <QTableView>

#include <functional>

namespace tarvex::panel
{

class MarkDelegate;

/// `DataGrid1`: a row a tube, the transfer mark first. F2, Enter or a digit start editing the mark
/// of the current row, whichever of its cells is the current one; Enter, Tab and the arrows up and
/// down leave it for good, Escape leaves it as it was. A mark that cannot be stored stays in its
/// editor until it can be, or until Escape.
class SurveyGrid : public QTableView
{
public:
    /// An empty grid until ShowRows.
    explicit SurveyGrid(QWidget* parent);
    using QTableView::edit;

    /// Shows the rows of `rows`, whose columns are the fields of a survey row.
    void ShowRows(QAbstractItemModel* rows);

    /// Brings an edit under way into its row. False when its mark cannot be stored.
    bool CommitEdit();

    /// Run with the outcome of each mark, as MarkDelegate reports it.
    void OnCommit(std::function<void(const QString& mark, const QString& reason)> report);

    /// Run when the grid gets the keyboard.
    std::function<void()> onFocus = [] {};

protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SizeColumns();
    void GoToMark();

    MarkDelegate* delegate_;
};

} // namespace tarvex::panel
