#include "survey/window/row_model.h"

#include "survey/window/window_text.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <cmath>
#include <utility>

namespace tarvex::survey
{

namespace
{
QString CellText(const SheetCell& cell)
{
    return cell.value ? QString::number(*cell.value, 'f', cell.decimals) : QStringLiteral("-");
}

/// A background for a faulty row that keeps its text legible on light and on dark.
QColor FaultColour()
{
    const bool dark = QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
    return dark ? QColor(96, 40, 30) : QColor(255, 222, 210);
}
} // namespace

std::map<int, RowModel::Fault> RowModel::FaultsOf(const Verdict& verdict)
{
    std::map<int, Fault> faults;
    for (const auto& finding : verdict.findings)
        for (const int depth : finding.depths) {
            auto& fault = faults[depth];
            fault.checks += Text(finding.check);
            fault.words += Text(finding.check + ": " + finding.text);
        }
    for (auto& [depth, fault] : faults)
        fault.checks.removeDuplicates();
    return faults;
}

void RowModel::Show(const Survey& survey, const Verdict& verdict)
{
    auto sheet = SheetOf(survey);
    std::vector<int> depths;
    for (const auto& row : survey.rows)
        depths.push_back(row.depth);
    auto faults = FaultsOf(verdict);
    // What can fail has been done: a reset that has begun must end.
    beginResetModel();
    sheet_ = std::move(sheet);
    depths_ = std::move(depths);
    faults_ = std::move(faults);
    endResetModel();
}

void RowModel::Clear()
{
    Show({}, {});
}

int RowModel::RowNear(double tenths) const
{
    int nearest = -1;
    for (std::size_t i = 0; i < depths_.size(); ++i)
        if (nearest < 0 || std::abs(depths_[i] - tenths) <
                               std::abs(depths_[static_cast<std::size_t>(nearest)] - tenths))
            nearest = static_cast<int>(i);
    return nearest;
}

int RowModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(sheet_.rows.size());
}

int RowModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(sheet_.titles.size()) + 1;
}

RowModel::Fault RowModel::FaultAt(int row) const
{
    const auto found = faults_.find(depths_[static_cast<std::size_t>(row)]);
    return found == faults_.end() ? Fault() : found->second;
}

QString RowModel::WordsAt(int row) const
{
    return FaultAt(row).words.join(QStringLiteral("; "));
}

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const auto& row = sheet_.rows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole)
        return column < row.size() ? CellText(row[column]) : WordsAt(index.row());
    if (role == Qt::TextAlignmentRole && column < row.size())
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::BackgroundRole && !WordsAt(index.row()).isEmpty()) return FaultColour();
    if (role == Qt::ToolTipRole) return WordsAt(index.row());
    return {};
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return FaultAt(section).checks.join(QStringLiteral(", "));
    const auto column = static_cast<std::size_t>(section);
    return column < sheet_.titles.size() ? Text(sheet_.titles[column]) : QStringLiteral("Fault");
}

} // namespace tarvex::survey
