#include "panel/survey/mark_delegate.h"

#include "panel/widgets/one_line.h"

#include <QLineEdit>

namespace tarvex::panel
{

QWidget* MarkDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    refused_ = false;
    editor_ = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor_.data())) KeepToOneLine(*line);
    if (editor_) editor_->setAccessibleName("Block for this row");
    return editor_;
}

void MarkDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    editor_.clear();
    refused_ = false;
    QStyledItemDelegate::destroyEditor(editor, index);
}

void MarkDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (!refused_) QStyledItemDelegate::setEditorData(editor, index);
}

void MarkDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const
{
    const auto* edit = qobject_cast<QLineEdit*>(editor);
    const QString mark = edit ? edit->text() : QString();
    refused_ = true; // while the rows think about it
    refused_ = !model->setData(index, mark);
    const QString reason = index.data(Qt::StatusTipRole).toString();
    onCommit(refused_ ? mark : QString(), refused_ ? reason : QString());
}

void MarkDelegate::FocusEditor()
{
    if (editor_) editor_->setFocus();
}

void MarkDelegate::Commit()
{
    if (!editor_) return;
    emit commitData(editor_);
    if (editor_ && !refused_) emit closeEditor(editor_, NoHint);
}

} // namespace tarvex::panel
