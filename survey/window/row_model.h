#pragma once

#include "survey/checks/verdict.h"
#include "survey/export/sheet.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <map>

namespace tarvex::survey
{

/// The table of a survey, one row a depth. What the verdict has against a depth is in words in
/// the last column; the names of the checks are the head of its row, which is coloured.
class RowModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Takes copies of what it needs, and resets the views on it.
    void Show(const Survey& survey, const Verdict& verdict);

    /// Leaves a table without rows.
    void Clear();

    /// Whether the verdict has something against a depth.
    bool HasFaults() const { return !faults_.empty(); }

    /// The row of the depth nearest to that one, in tenths of a metre; -1 without rows.
    int RowNear(double tenths) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Fault {
        QStringList checks;
        QStringList words;
    };
    static std::map<int, Fault> FaultsOf(const Verdict& verdict);

    Fault FaultAt(int row) const;
    QString WordsAt(int row) const;

    Sheet sheet_;
    std::vector<int> depths_;
    std::map<int, Fault> faults_; // by depth
};

} // namespace tarvex::survey
