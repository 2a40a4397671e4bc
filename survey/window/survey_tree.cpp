#include "survey/window/survey_tree.h"

#include "survey/files/report_names.h"
#include "survey/window/window_text.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>

namespace tarvex::survey
{

namespace
{
constexpr int kNumberRole = Qt::UserRole; // number of the survey in the list

/// The child of a tree's node with that text, made if it is not there.
QTreeWidgetItem* Node(QTreeWidgetItem* parent, const QString& text)
{
    for (int i = 0; i < parent->childCount(); ++i)
        if (parent->child(i)->text(0) == text) return parent->child(i);
    auto* const node = new QTreeWidgetItem(parent, {text});
    node->setFlags(node->flags() & ~Qt::ItemIsSelectable);
    return node;
}

/// The texts of a node and of those above it, which distinguish it from all others.
QStringList NamesOf(const QTreeWidgetItem* node)
{
    QStringList names;
    for (; node != nullptr; node = node->parent())
        names += node->text(0);
    return names;
}
} // namespace

SurveyTree::SurveyTree(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("tree"));
    setAccessibleName(QStringLiteral("Surveys by client, site, tube and readout"));
    header()->setMinimumSectionSize(fontMetrics().height()); // else all letters are measured
    setHeaderLabels({QStringLiteral("Surveys")});
    // A line that is too wide scrolls: its end is the date.
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void SurveyTree::Show(const std::vector<ListedSurvey>& listed)
{
    const QSignalBlocker quiet(this);
    const auto closed = Closed();
    clear();
    auto* const root = invisibleRootItem();
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const auto& head = listed[i].head;
        auto* const tube =
            Node(Node(Node(root, Text(head.client)), Text(head.site)), Text(head.tube));
        auto* const reading =
            new QTreeWidgetItem(tube, {Text(head.readout + "  " + head.date + "  " + head.time)});
        reading->setData(0, kNumberRole, static_cast<int>(i));
        reading->setToolTip(0, Text(Shown(listed[i].path)));
    }
    expandAll();
    if (closed.isEmpty()) return;
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item)
        if (closed.contains(NamesOf(*item))) (*item)->setExpanded(false);
}

QSet<QStringList> SurveyTree::Closed()
{
    QSet<QStringList> closed;
    for (QTreeWidgetItemIterator item(this, QTreeWidgetItemIterator::HasChildren); *item != nullptr;
         ++item)
        if (!(*item)->isExpanded()) closed += NamesOf(*item);
    return closed;
}

void SurveyTree::Choose(const std::vector<std::size_t>& numbers)
{
    const QSignalBlocker quiet(this);
    clearSelection();
    for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
        const auto number = (*item)->data(0, kNumberRole);
        if (!number.isValid() ||
            !std::ranges::binary_search(numbers, static_cast<std::size_t>(number.toInt())))
            continue;
        setCurrentItem(*item, 0, QItemSelectionModel::Select);
    }
}

std::vector<std::size_t> SurveyTree::Chosen() const
{
    std::vector<std::size_t> numbers;
    for (const auto* const item : selectedItems())
        if (const auto number = item->data(0, kNumberRole); number.isValid())
            numbers.push_back(static_cast<std::size_t>(number.toInt()));
    std::ranges::sort(numbers);
    return numbers;
}

QItemSelectionModel::SelectionFlags SurveyTree::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const
{
    if (index.isValid() && !(index.flags() & Qt::ItemIsSelectable))
        return QItemSelectionModel::NoUpdate;
    return QTreeWidget::selectionCommand(index, event);
}

QSize SurveyTree::sizeHint() const
{
    constexpr int kLevels = 4;
    const int line = fontMetrics().horizontalAdvance(QStringLiteral("00  00/00/0000  00:00:00 "));
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return {kLevels * indentation() + line + bar + 2 * frameWidth(),
            QTreeWidget::sizeHint().height()};
}

} // namespace tarvex::survey
