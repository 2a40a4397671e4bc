#include "survey/window/accessible.h"
#include "survey/window/cut_label.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include <QHeaderView>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>

namespace tarvex::survey
{

void MainWindow::BuildTable(QWidget* parent)
{
    table_ = new QTableView(parent);
    table_->setObjectName(QStringLiteral("table"));
    table_->setAccessibleName(QStringLiteral("Readings, sums and half differences by depth"));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setWordWrap(false);
    table_->verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->verticalHeader()->hide();
    // One height for all rows, and widths by the titles: measuring each number costs a visible
    // pause.
    constexpr int kRoom = 6;
    const auto metrics = table_->fontMetrics();
    table_->verticalHeader()->setDefaultSectionSize(metrics.height() + kRoom);
    auto& titles = *table_->horizontalHeader();
    titles.setMinimumSectionSize(metrics.height());
    titles.setDefaultSectionSize(WidthOf(QStringLiteral("A1+A3-")));
    titles.setStretchLastSection(true);
    table_->setModel(&rows_);
}

int MainWindow::WidthOf(const QString& title) const
{
    const auto& titles = *table_->horizontalHeader();
    auto bold = titles.font();
    bold.setBold(true); // as of the marked row
    return QFontMetrics(bold).horizontalAdvance(title) +
           4 * titles.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &titles);
}

/// Only the half differences need more room than a reading.
void MainWindow::FitColumns()
{
    const int usual = table_->horizontalHeader()->defaultSectionSize();
    for (int column = 0; column + 1 < rows_.columnCount(); ++column) {
        const auto title = rows_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const bool wide = title.startsWith(QLatin1Char('('));
        table_->setColumnWidth(column, wide ? WidthOf(title) : usual);
    }
}

void MainWindow::BuildValues()
{
    values_ = new CutLabel(this);
    MakeSpoken(*values_);
    values_->setObjectName(QStringLiteral("values"));
    values_->setAccessibleName(QStringLiteral("Values at the pointed depth"));
    statusBar()->addWidget(values_, 1);
    plot_->keyPointed = [this] { Announce(*values_); };
}

void MainWindow::PointToDepth(double tenths)
{
    const int row = rows_.RowNear(tenths);
    if (row < 0) return;
    table_->selectRow(row);
    QStringList values;
    const int last = rows_.columnCount() - 1; // words, which need no name
    for (int column = 0; column <= last; ++column) {
        const auto name = rows_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const auto value = rows_.data(rows_.index(row, column), Qt::DisplayRole).toString();
        if (!value.isEmpty()) values += column < last ? name + QLatin1Char(' ') + value : value;
    }
    values_->Say(values.join(QStringLiteral("   ")));
}

/// The line across the plots stays where it was, and other surveys have other values there.
void MainWindow::PointAgain()
{
    values_->Say({});
    if (plot_->IsPointed()) PointToDepth(plot_->Pointed());
}

} // namespace tarvex::survey
