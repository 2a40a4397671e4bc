#include "panel/database_forms/mark_delegate.h"

#include "panel/one_line.h"

#include <QLineEdit>

namespace tarvex::panel
{

QWidget* MarkDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    editor_ = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor_.data())) KeepToOneLine(*line);
    if (editor_) editor_->setAccessibleName("Block for this row");
    return editor_;
}

void MarkDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    editor_.clear();
    QStyledItemDelegate::destroyEditor(editor, index);
}

void MarkDelegate::Commit()
{
    if (!editor_) return;
    emit commitData(editor_);
    emit closeEditor(editor_, NoHint);
}

} // namespace tarvex::panel
