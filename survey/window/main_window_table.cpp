#include "survey/window/accessible.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include <QHeaderView>
#include <QLabel>
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
    table_->verticalHeader()->hide();
    // One height for all rows and one width for all numbers: measuring each costs a visible pause.
    constexpr int kRoom = 6;
    const auto metrics = table_->fontMetrics();
    table_->verticalHeader()->setDefaultSectionSize(metrics.height() + kRoom);
    auto& titles = *table_->horizontalHeader();
    titles.setMinimumSectionSize(metrics.height());
    titles.setDefaultSectionSize(
        metrics.horizontalAdvance(QStringLiteral("(A1-A3)/2")) + 2 * kRoom +
        2 * titles.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &titles));
    titles.setStretchLastSection(true);
    table_->setModel(&rows_);
}

void MainWindow::BuildValues()
{
    values_ = new QLabel(this);
    MakeSpoken(*values_);
    values_->setObjectName(QStringLiteral("values"));
    values_->setAccessibleName(QStringLiteral("Values at the pointed depth"));
    values_->setTextFormat(Qt::PlainText);
    // A long line is cut off rather than widen the window.
    values_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
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
    values_->setText(values.join(QStringLiteral("   ")));
}

} // namespace tarvex::survey
