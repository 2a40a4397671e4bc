#pragma once

#include <QTableView>

namespace tarvex::panel
{

class MarkDelegate;

/// `DataGrid1`: a row a tube, the transfer mark first. F2, Enter or a digit start editing the mark
/// of the current row, whichever of its cells is the current one; Enter, Tab and the arrows up and
/// down leave it for good, Escape leaves it as it was.
class SurveyGrid : public QTableView
{
public:
    explicit SurveyGrid(QWidget* parent);

    /// Shows the rows of `rows`, whose columns are the fields of a survey row.
    void ShowRows(QAbstractItemModel* rows);

    /// Brings an edit under way into its row.
    void CommitEdit();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SizeColumns();
    void GoToMark();

    MarkDelegate* delegate_;
};

} // namespace tarvex::panel
