#include "panel/survey/survey_grid.h"

#include "database/survey_fields.h"
#include "panel/survey/field_header.h"
#include "panel/survey/mark_delegate.h"
#include "panel/widgets/look.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace tarvex::panel
{

namespace
{

const int kMarkColumn = static_cast<int>(FieldIndex(kMarkField));

/// Characters of the fields in front of the slots, in their order.
constexpr std::array kFirstWidths = {8, 8, 4, 4, 1, 1, 4, 2};
constexpr int kSlotWidth = 16;
constexpr int kMarkWidth = 4;
constexpr int kMargin = 20; // around a cell's text, in pixels

int CharactersOf(int column)
{
    if (column == kMarkColumn) return kMarkWidth;
    const auto place = static_cast<std::size_t>(column);
    return place < kFirstWidths.size() ? kFirstWidths[place] : kSlotWidth;
}

bool IsDigit(const QKeyEvent& event)
{
    return !event.text().isEmpty() && event.text().front().isDigit();
}

bool OpensEditor(const QKeyEvent& event)
{
    return event.key() == Qt::Key_F2 || event.key() == Qt::Key_Return ||
           event.key() == Qt::Key_Enter;
}

} // namespace

SurveyGrid::SurveyGrid(QWidget* parent) : QTableView(parent), delegate_(new MarkDelegate(this))
{
    setFont(FixedWidthFont()); // blanks count
    setHorizontalHeader(new FieldHeader(this));
    horizontalHeader()->setFont(font());
    setItemDelegate(delegate_);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setTabKeyNavigation(false); // Tab leads out of the grid, and from an editor to the next cell
    setWordWrap(false);
    setCornerButtonEnabled(false);
    // Asking every row for its height would read the whole table.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
}

void SurveyGrid::ShowRows(QAbstractItemModel* rows)
{
    setModel(rows);
    horizontalHeader()->moveSection(kMarkColumn, 0);
    SizeColumns();
    setCurrentIndex(rows->index(0, kMarkColumn));
}

void SurveyGrid::SizeColumns()
{
    for (int column = 0; column < model()->columnCount(); ++column) {
        const QString name = model()->headerData(column, Qt::Horizontal).toString();
        const int text = fontMetrics().horizontalAdvance(QString(CharactersOf(column), 'W'));
        const int header = horizontalHeader()->fontMetrics().horizontalAdvance(name);
        setColumnWidth(column, std::max(text, header) + kMargin);
    }
}

bool SurveyGrid::CommitEdit()
{
    delegate_->Commit();
    return !delegate_->IsRefused();
}

void SurveyGrid::OnCommit(std::function<void(const QString& mark, const QString& reason)> report)
{
    delegate_->onCommit = std::move(report);
}

/// With two editors at once one of them would never close.
bool SurveyGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if ((editTriggers() & trigger) != 0 && delegate_->IsRefused() && !CommitEdit()) {
        delegate_->FocusEditor();
        return false;
    }
    return QTableView::edit(index, trigger, event);
}

void SurveyGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool dropped = hint == QAbstractItemDelegate::RevertModelCache;
    if (delegate_->IsRefused() && !dropped) return;
    if (dropped) delegate_->onCommit({}, {});
    QTableView::closeEditor(editor, hint);
}

void SurveyGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    onFocus();
}

void SurveyGrid::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState || !currentIndex().isValid()) {
        return QTableView::keyPressEvent(event);
    }
    if (OpensEditor(*event)) {
        GoToMark();
        return edit(currentIndex());
    }
    if (IsDigit(*event)) GoToMark(); // where the digit then starts an edit
    QTableView::keyPressEvent(event);
}

void SurveyGrid::GoToMark()
{
    setCurrentIndex(currentIndex().siblingAtColumn(kMarkColumn));
}

} // namespace tarvex::panel
