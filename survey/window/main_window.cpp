#include "survey/window/main_window.h"

#include "survey/check.h"
#include "survey/compare.h"
#include "survey/load.h"

#include <QComboBox>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr int kPathRole = Qt::UserRole; // number of the survey in the list
constexpr int kQuietTime = 300;         // ms without a change before the folder is read again

QString Text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// The child of a tree's node with that text, made if it is not there.
QTreeWidgetItem* Node(QTreeWidgetItem* parent, const QString& text)
{
    for (int i = 0; i < parent->childCount(); ++i)
        if (parent->child(i)->text(0) == text) return parent->child(i);
    auto* const node = new QTreeWidgetItem(parent, {text});
    node->setFlags(node->flags() & ~Qt::ItemIsSelectable);
    return node;
}

/// The file dialogs would keep their history in a file of the operator's home; nothing can be
/// written here.
void KeepNoSettings()
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}
} // namespace

MainWindow::MainWindow()
{
    KeepNoSettings();
    setWindowTitle(QStringLiteral("Tar Vex Survey"));
    setObjectName(QStringLiteral("survey"));
    setAcceptDrops(true);
    BuildCentre();
    BuildMenus();
    resize(1100, 760);
    relist_.setSingleShot(true);
    relist_.setInterval(kQuietTime);
    connect(&relist_, &QTimer::timeout, this, [this] { Relist(); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, [this] { relist_.start(); });
}

void MainWindow::BuildCentre()
{
    auto* const centre = new QSplitter(this);
    tree_ = new QTreeWidget(centre);
    tree_->setObjectName(QStringLiteral("tree"));
    tree_->setAccessibleName(QStringLiteral("Surveys by client, site, tube and readout"));
    tree_->setHeaderLabels({QStringLiteral("Surveys")});
    tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
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
    verdictLine_ = new QLabel(side);
    verdictLine_->setObjectName(QStringLiteral("verdict"));
    verdictLine_->setAccessibleName(QStringLiteral("Verdict on the survey"));
    verdictLine_->setWordWrap(true);
    verdictLine_->setTextFormat(Qt::PlainText);
    verdictLine_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(verdictLine_);

    auto* const choices = new QHBoxLayout;
    kinds_ = new QTabBar(side);
    kinds_->setObjectName(QStringLiteral("kinds"));
    kinds_->setAccessibleName(QStringLiteral("What the plots show"));
    for (const auto& kind : kPlotKinds)
        kinds_->addTab(QString::fromLatin1(kind.name));
    connect(kinds_, &QTabBar::currentChanged, this, [this] { ShowPlots(); });
    choices->addWidget(kinds_, 1);
    auto* const label = new QLabel(QStringLiteral("&Base:"), side);
    bases_ = new QComboBox(side);
    bases_->setObjectName(QStringLiteral("bases"));
    bases_->setAccessibleName(QStringLiteral("The reading that others are held against"));
    label->setBuddy(bases_);
    connect(bases_, &QComboBox::activated, this, [this] { ShowBase(); });
    choices->addWidget(label);
    choices->addWidget(bases_);
    column->addLayout(choices);

    auto* const halves = new QSplitter(Qt::Vertical, side);
    plot_ = new PlotView(halves);
    plot_->depthPointed = [this](double tenths) { PointToDepth(tenths); };
    table_ = new QTableView(halves);
    table_->setObjectName(QStringLiteral("table"));
    table_->setAccessibleName(QStringLiteral("Readings, sums and half differences by depth"));
    table_->setModel(&rows_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    // One height for all rows and widths by the first of them: measuring each costs a visible
    // pause.
    constexpr int kRoom = 6;
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + kRoom);
    table_->horizontalHeader()->setResizeContentsPrecision(0);
    table_->horizontalHeader()->setStretchLastSection(true);
    halves->setSizes({480, 200});
    column->addWidget(halves, 1);
    return side;
}

void MainWindow::OpenFolder(const fs::path& folder)
{
    if (!watcher_.directories().isEmpty()) watcher_.removePaths(watcher_.directories());
    folder_ = folder;
    watcher_.addPath(Text(folder.string()));
    Relist();
}

void MainWindow::OpenFile(const fs::path& file)
{
    try {
        Load(file); // a refusal before the folder is changed
    } catch (const Refusal& refusal) {
        return Report(refusal.what());
    }
    opened_ = file;
    const auto folder = file.parent_path();
    OpenFolder(folder.empty() ? "." : folder);
    Choose(file);
}

void MainWindow::Relist()
{
    const auto before = ChosenPaths();
    try {
        listed_ = ListFolder(folder_);
    } catch (const Refusal& refusal) {
        listed_.clear();
        Report(refusal.what());
    }
    AddOpened();
    FillTree();
    if (!before.empty())
        Choose(before.back());
    else if (!listed_.empty())
        Choose(listed_.back().path);
}

/// A work file, or a report under another name, is listed by its name alone.
void MainWindow::AddOpened()
{
    std::error_code error;
    if (opened_.empty() || !fs::exists(opened_, error)) return;
    for (const auto& listed : listed_) {
        const auto partner = PartnerOf(listed.path);
        if (fs::equivalent(listed.path, opened_, error) ||
            (partner && fs::equivalent(*partner, opened_, error)))
            return;
    }
    Head head;
    head.client = "Other files";
    head.site = Shown(opened_.parent_path());
    head.tube = Shown(opened_.filename());
    listed_.push_back({opened_, head, false, true});
}

void MainWindow::FillTree()
{
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    auto* const root = tree_->invisibleRootItem();
    for (std::size_t i = 0; i < listed_.size(); ++i) {
        const auto& head = listed_[i].head;
        auto* const tube =
            Node(Node(Node(root, Text(head.client)), Text(head.site)), Text(head.tube));
        auto* const reading =
            new QTreeWidgetItem(tube, {Text(head.readout + "  " + head.date + "  " + head.time)});
        reading->setData(0, kPathRole, static_cast<int>(i));
        reading->setToolTip(0, Text(Shown(listed_[i].path)));
    }
    tree_->expandAll();
}

void MainWindow::Choose(const fs::path& path)
{
    const QSignalBlocker quiet(tree_); // shown once, below
    std::error_code error;
    for (QTreeWidgetItemIterator item(tree_); *item != nullptr; ++item) {
        const auto number = (*item)->data(0, kPathRole);
        if (!number.isValid()) continue;
        const auto& listed = listed_[static_cast<std::size_t>(number.toInt())].path;
        const auto partner = PartnerOf(listed);
        if (fs::equivalent(listed, path, error) ||
            (partner && fs::equivalent(*partner, path, error))) {
            tree_->setCurrentItem(*item);
            break;
        }
    }
    ShowChosen();
}

std::vector<fs::path> MainWindow::ChosenPaths() const
{
    std::vector<int> numbers;
    for (const auto* const item : tree_->selectedItems())
        if (const auto number = item->data(0, kPathRole); number.isValid())
            numbers.push_back(number.toInt());
    std::ranges::sort(numbers);
    std::vector<fs::path> paths;
    paths.reserve(numbers.size());
    for (const int number : numbers)
        paths.push_back(listed_[static_cast<std::size_t>(number)].path);
    return paths;
}

void MainWindow::LoadChosen()
{
    chosen_.clear();
    for (const auto& path : ChosenPaths())
        try {
            chosen_.push_back(Load(path));
        } catch (const Refusal& refusal) {
            Report(refusal.what());
        }
}

void MainWindow::ShowChosen()
{
    LoadChosen();
    FillBases();
    if (chosen_.empty()) {
        verdict_ = {};
        verdictLine_->setText(QStringLiteral("No survey is chosen"));
        rows_.Clear();
    } else {
        verdict_ = Check(chosen_.back(), limits_);
        verdictLine_->setText(Text("Verdict: " + verdict_.Line()));
        verdictLine_->setToolTip(Text(TextOf(verdict_)));
        rows_.Show(chosen_.back(), verdict_);
    }
    table_->resizeColumnsToContents();
    ShowBase();
}

/// Only readings of the same tube can be a base; the first of them is, until another is chosen.
void MainWindow::FillBases()
{
    const auto before = bases_->currentText();
    bases_->clear();
    if (!chosen_.empty() && chosen_.back().head) {
        const auto& head = *chosen_.back().head;
        for (std::size_t i = 0; i < listed_.size(); ++i) {
            const auto& other = listed_[i].head;
            if (other.client == head.client && other.site == head.site && other.tube == head.tube)
                bases_->addItem(Text(other.readout + "  " + other.date), static_cast<int>(i));
        }
    }
    bases_->setCurrentIndex(std::max(0, bases_->findText(before)));
    bases_->setEnabled(bases_->count() > 1);
}

void MainWindow::ShowBase()
{
    base_.reset();
    if (const auto number = bases_->currentData(); number.isValid() && !chosen_.empty()) try {
            base_ = Load(listed_[static_cast<std::size_t>(number.toInt())].path);
            const auto comparison = Compare(*base_, chosen_.back(), SumFrom::Bottom);
            if (!comparison.refusal.empty()) {
                Report("The base is of another tube: " + comparison.refusal);
                base_.reset();
            } else if (!comparison.notes.empty()) {
                Report(comparison.notes.front());
            }
        } catch (const Refusal& refusal) {
            Report(refusal.what());
        }
    ShowPlots();
}

void MainWindow::ShowPlots()
{
    std::vector<const Survey*> surveys;
    for (const auto& survey : chosen_)
        surveys.push_back(&survey);
    const auto kind = kPlotKinds[static_cast<std::size_t>(kinds_->currentIndex())].kind;
    plot_->Show(PageOf(kind, surveys, base_ ? &*base_ : nullptr, limits_));
}

void MainWindow::PointToDepth(double tenths)
{
    const int row = rows_.RowNear(tenths);
    if (row < 0) return;
    table_->selectRow(row);
    QStringList values;
    for (int column = 0; column < rows_.columnCount(); ++column) {
        const auto name = rows_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        const auto value = rows_.data(rows_.index(row, column), Qt::DisplayRole).toString();
        if (!value.isEmpty()) values += name + QLatin1Char(' ') + value;
    }
    statusBar()->showMessage(values.join(QStringLiteral("   ")));
}

void MainWindow::Report(const std::string& sentence)
{
    statusBar()->showMessage(Text(sentence));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    for (const auto& url : event->mimeData()->urls()) {
        if (!url.isLocalFile()) continue;
        const fs::path path(url.toLocalFile().toStdString());
        std::error_code error;
        if (fs::is_directory(path, error))
            OpenFolder(path);
        else
            OpenFile(path);
        event->acceptProposedAction();
        return;
    }
}

} // namespace tarvex::survey
