#include "panel/forms/directory_list.h"

#include "core/failure.h"
#include "panel/forms/folder_tree.h"
#include "panel/forms/report_folder.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyle>

namespace tarvex::panel
{

namespace fs = std::filesystem;

DirectoryList::DirectoryList(QWidget* parent)
    : QTreeView(parent), tree_(new FolderTree(*style(), this))
{
    setModel(tree_);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeView::expanded, tree_, &FolderTree::Read);
}

fs::path DirectoryList::Folder() const
{
    return FolderTree::Folder(currentIndex());
}

void DirectoryList::SetFolder(const fs::path& folder)
{
    if (!CanBeListed(folder)) throw RunTimeFailure("Path not found");
    const QModelIndex index = tree_->RowOf(folder.lexically_normal());
    OpenWayTo(index.parent());
    setCurrentIndex(index);
    expand(index);
    scrollTo(index, QAbstractItemView::PositionAtCenter);
}

// The marked row reaches across the list, and a long one makes it scroll sideways.
void DirectoryList::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeView::resizeEvent(event);
    if (currentIndex().isValid()) scrollTo(currentIndex(), QAbstractItemView::PositionAtCenter);
}

void DirectoryList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (isExpanded(current) && !FolderTree::WasRead(current)) tree_->Read(current);
    if (changed_) changed_();
}

/// Opens a folder and all above it, and reads none of them.
void DirectoryList::OpenWayTo(const QModelIndex& index)
{
    const QSignalBlocker unread(this);
    for (QModelIndex above = index; above.isValid(); above = above.parent())
        expand(above);
}

} // namespace tarvex::panel
