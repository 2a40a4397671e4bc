#pragma once

#include "core/handlers.h"

#include <QAbstractItemModel>
#include <QLabel>
#include <QWidget>

#include <memory>

namespace tarvex::panel
{

class SurveyGrid;

/// `Form5`, the rows of the survey table. It shows what is in the table whenever it is shown, comes
/// to the front or its grid gets the keyboard; an edit under way reaches its row when the form
/// closes. While a mark cannot be stored, a line says so and the form stays open. Deletes itself
/// when closed.
class Form5 : public QWidget
{
public:
    /// The columns of `rows` are the fields of a survey row; its revert() makes it current, and its
    /// Qt::StatusTipRole says why the last mark was refused.
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
    void Report(const QString& mark, const QString& reason);

    std::unique_ptr<QAbstractItemModel> rows_;
    SurveyGrid* DataGrid1;
    QLabel* notice_; // why a mark is not stored
};

} // namespace tarvex::panel
