#include "survey/window/fit_screen.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_page.h"
#include "survey/window/plot_view.h"
#include "survey/window/survey_tree.h"
#include "survey/window/verdict_line.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace tarvex::survey
{

void MainWindow::BuildCentre()
{
    auto* const centre = new QWidget(this);
    auto* const column = new QVBoxLayout(centre);
    constexpr int kAround = 4; // a magnified screen has no room to spare
    column->setContentsMargins(kAround, kAround, kAround, kAround);
    column->setSpacing(kAround);
    verdictRow_ = BuildVerdict();
    column->addWidget(verdictRow_);
    pages_ = new QStackedWidget(centre);
    pages_->addWidget(new Room(BuildSurveys(), pages_));
    column->addWidget(pages_, 1);
    setCentralWidget(centre);
}

QWidget* MainWindow::BuildVerdict()
{
    auto* const both = new QWidget(this);
    auto* const row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    verdictLine_ = new VerdictLine(both);
    row->addWidget(verdictLine_, 1);
    reasons_ = new QPushButton(QStringLiteral("&Reasons..."), both);
    reasons_->setObjectName(QStringLiteral("reasons"));
    connect(reasons_, &QPushButton::clicked, this, [this] { ShowReasons(); });
    row->addWidget(reasons_, 0, Qt::AlignTop);
    return both;
}

QWidget* MainWindow::BuildSurveys()
{
    auto* const halves = new QSplitter(this);
    tree_ = new SurveyTree(halves);
    connect(tree_, &QTreeWidget::itemSelectionChanged, this, [this] { ShowChosen(); });
    halves->addWidget(tree_);
    halves->addWidget(BuildSide());
    halves->setStretchFactor(1, 1);
    const int tree = tree_->sizeHint().width();
    halves->setSizes({tree, kUsualSize.width() - tree});
    halves->setChildrenCollapsible(false);
    return halves;
}

QWidget* MainWindow::BuildSide()
{
    auto* const side = new QWidget(this);
    auto* const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(BuildChoices(side));
    auto* const halves = new QSplitter(Qt::Vertical, side);
    plot_ = new PlotView(halves);
    plot_->depthPointed = [this](double tenths) { PointToDepth(tenths); };
    BuildTable(halves);
    halves->setSizes({480, 200});
    halves->setChildrenCollapsible(false);
    column->addWidget(halves, 1);
    return side;
}

QLayout* MainWindow::BuildChoices(QWidget* parent)
{
    auto* const choices = new QHBoxLayout;
    kinds_ = new QTabBar(parent);
    kinds_->setObjectName(QStringLiteral("kinds"));
    kinds_->setUsesScrollButtons(true);
    kinds_->setAccessibleName(QStringLiteral("What the plots show"));
    for (const auto& kind : kPlotKinds)
        kinds_->addTab(QString::fromLatin1(kind.name));
    connect(kinds_, &QTabBar::currentChanged, this, [this] { ShowPlots(); });
    choices->addWidget(kinds_, 1);
    auto* const label = new QLabel(QStringLiteral("&Base:"), parent);
    bases_ = new QComboBox(parent);
    bases_->setObjectName(QStringLiteral("bases"));
    bases_->setAccessibleName(QStringLiteral("The reading that others are compared with"));
    bases_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    bases_->setMinimumContentsLength(12); // readout and date
    bases_->setMinimumWidth(bases_->sizeHint().width() / 2);
    label->setBuddy(bases_);
    connect(bases_, &QComboBox::activated, this, [this] { ShowBase(); });
    choices->addWidget(label);
    choices->addWidget(bases_);
    return choices;
}

} // namespace tarvex::survey
