#include "panel/forms/directory_list.h"

#include "core/failure.h"
#include "panel/forms/report_folder.h"
#include "panel/forms/texts.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>

namespace tarvex::panel
{

DirectoryList::DirectoryList(QWidget* parent)
    : QTreeView(parent), icons_(style()->standardIcon(QStyle::SP_DirIcon))
{
    model_.setIconProvider(&icons_);
    model_.setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    model_.setRootPath(QString());
    setModel(&model_);
    for (int column = 1; column < model_.columnCount(); ++column)
        hideColumn(column);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    FollowArrivals();
}

// Folders arrive and are sorted in long after the one to show, and would push it out of view; the
// list stays with it until the operator looks elsewhere.
void DirectoryList::FollowArrivals()
{
    const auto keep = [this] { KeepInView(); };
    connect(&model_, &QFileSystemModel::directoryLoaded, this, keep);
    connect(&model_, &QFileSystemModel::layoutChanged, this, keep, Qt::QueuedConnection);
    const auto leave = [this] { toShow_ = QModelIndex(); };
    connect(this, &QTreeView::expanded, this, leave);
    connect(this, &QTreeView::collapsed, this, leave);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this, leave);
}

std::filesystem::path DirectoryList::Folder() const
{
    return QFileInfo(model_.filePath(currentIndex())).filesystemFilePath();
}

void DirectoryList::SetFolder(const std::filesystem::path& folder)
{
    if (!CanBeListed(folder)) throw RunTimeFailure("Path not found");
    const QModelIndex index = model_.index(FromPath(folder));
    if (!index.isValid()) throw RunTimeFailure("Path not found");
    setCurrentIndex(index);
    expand(index);
    toShow_ = index;
    KeepInView();
}

void DirectoryList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    toShow_ = QModelIndex();
    if (changed_) changed_();
}

// The marked row reaches across the list, and a long one makes it scroll sideways.
void DirectoryList::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeView::resizeEvent(event);
    KeepInView();
}

void DirectoryList::KeepInView()
{
    if (toShow_.isValid()) scrollTo(toShow_, QAbstractItemView::PositionAtCenter);
}

} // namespace tarvex::panel
