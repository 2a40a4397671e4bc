#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace tarvex::panel
{

/// Edits a transfer mark in its cell, and can be told to bring an open edit to its end.
class MarkDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// Writes what an open editor holds into its row, and closes it.
    void Commit();

private:
    mutable QPointer<QWidget> editor_; // the one under way
};

} // namespace tarvex::panel
