#pragma once

#include "core/handlers.h"

#include <QAbstractItemModel>
#include <QWidget>

#include <memory>

namespace tarvex::panel
{

class SurveyGrid;

/// `Form5`, the rows of the survey table. It shows what is in the table whenever it comes to the
/// front; an edit under way reaches its row when the form closes. Deletes itself when closed.
class Form5 : public QWidget
{
public:
    /// The columns of `rows` are the fields of a survey row; its revert() makes it current.
    Form5(Handlers& handlers, std::unique_ptr<QAbstractItemModel> rows, QWidget* parent);
    ~Form5() override;

    /// Brings an edit under way into its row.
    void CommitEdit();

    /// Takes in what has been written to the table; an edit under way reaches its row before.
    void Refresh();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Build(Handlers& handlers);

    std::unique_ptr<QAbstractItemModel> rows_;
    SurveyGrid* DataGrid1;
};

} // namespace tarvex::panel
