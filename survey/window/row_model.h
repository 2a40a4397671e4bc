#pragma once

#include "survey/checks/verdict.h"
#include "survey/export/sheet.h"

#include <QAbstractTableModel>
#include <map>

namespace tarvex::survey
{

/// The table of a survey, one row a depth; what the verdict has against a depth is in words in
/// the last column, and its row is coloured.
class RowModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Takes copies of what it needs, and resets the views on it.
    void Show(const Survey& survey, const Verdict& verdict);

    /// Leaves a table without rows.
    void Clear();

    /// The row of the depth nearest to that one, in tenths of a metre; -1 without rows.
    int RowNear(double tenths) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString FaultAt(int row) const;

    Sheet sheet_;
    std::vector<int> depths_;
    std::map<int, QString> faults_; // by depth
};

} // namespace tarvex::survey
