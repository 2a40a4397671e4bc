#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace tarvex::panel
{

/// Edits a transfer mark in its cell, and can end an open edit when asked. A mark that
/// the rows refuse stays in its editor.
class MarkDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// A line edit, from now on the one under way; its mark is not refused yet.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// Leaves a refused mark as it was typed.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;

    /// Gives the mark to its row, and the outcome to `onCommit`.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

    /// Writes what an open editor holds into its row, and closes it if that succeeds.
    void Commit();

    /// Gives the keyboard to the editor under way.
    void FocusEditor();

    /// The mark under way has not reached its row.
    bool IsRefused() const { return refused_; }

    /// Run with the outcome whenever a mark is given to its row: nothing, or the mark and why it
    /// was refused.
    std::function<void(const QString& mark, const QString& reason)> onCommit =
        [](const QString&, const QString&) {};

private:
    mutable QPointer<QWidget> editor_; // the one under way
    mutable bool refused_ = false;
};

} // namespace tarvex::panel
