#include "survey/window/main_window.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvex::survey
{

void MainWindow::BuildCentre()
{
    auto* const centre = new QSplitter(this);
    tree_ = new SurveyTree(centre);
    connect(tree_, &QTreeWidget::itemSelectionChanged, this, [this] { ShowChosen(); });
    centre->addWidget(tree_);
    centre->addWidget(BuildSide());
    centre->setStretchFactor(1, 1);
    centre->setSizes({230, 870});
    setCentralWidget(centre);
}

QWidget* MainWindow::BuildSide()
{
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->addWidget(BuildVerdict(side));
    column->addLayout(BuildChoices(side));
    auto* const halves = new QSplitter(Qt::Vertical, side);
    plot_ = new PlotView(halves);
    plot_->depthPointed = [this](double tenths) { PointToDepth(tenths); };
    BuildTable(halves);
    halves->setSizes({480, 200});
    column->addWidget(halves, 1);
    return side;
}

QWidget* MainWindow::BuildVerdict(QWidget* parent)
{
    verdictLine_ = new QLabel(parent);
    verdictLine_->setObjectName(QStringLiteral("verdict"));
    verdictLine_->setAccessibleName(QStringLiteral("Verdict on the survey"));
    verdictLine_->setWordWrap(true);
    verdictLine_->setTextFormat(Qt::PlainText);
    verdictLine_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return verdictLine_;
}

QLayout* MainWindow::BuildChoices(QWidget* parent)
{
    auto* const choices = new QHBoxLayout;
    kinds_ = new QTabBar(parent);
    kinds_->setObjectName(QStringLiteral("kinds"));
    kinds_->setAccessibleName(QStringLiteral("What the plots show"));
    for (const auto& kind : kPlotKinds)
        kinds_->addTab(QString::fromLatin1(kind.name));
    connect(kinds_, &QTabBar::currentChanged, this, [this] { ShowPlots(); });
    choices->addWidget(kinds_, 1);
    auto* const label = new QLabel(QStringLiteral("&Base:"), parent);
    bases_ = new QComboBox(parent);
    bases_->setObjectName(QStringLiteral("bases"));
    bases_->setAccessibleName(QStringLiteral("The reading that others are held against"));
    label->setBuddy(bases_);
    connect(bases_, &QComboBox::activated, this, [this] { ShowBase(); });
    choices->addWidget(label);
    choices->addWidget(bases_);
    return choices;
}

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
    values_->setObjectName(QStringLiteral("values"));
    values_->setAccessibleName(QStringLiteral("Values at the pointed depth"));
    values_->setTextFormat(Qt::PlainText);
    // A long line is cut off rather than widen the window.
    values_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(values_, 1);
}

} // namespace tarvex::survey
