#include "panel/forms/directory_list.h"

#include "core/failure.h"
#include "panel/forms/report_folder.h"
#include "panel/forms/texts.h"

#include <QFileInfo>
#include <QHeaderView>

namespace tarvex::panel
{

DirectoryList::DirectoryList(QWidget* parent) : QTreeView(parent)
{
    model_.setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    model_.setOption(QFileSystemModel::DontUseCustomDirectoryIcons); // they cost a read a folder
    model_.setRootPath(QString());
    setModel(&model_);
    for (int column = 1; column < model_.columnCount(); ++column)
        hideColumn(column);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(&model_, &QFileSystemModel::directoryLoaded, this, [this] { KeepInView(); });
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
    toShow_ = QModelIndex(); // the operator has moved on
    if (changed_) changed_();
}

// Folders above the shown one arrive after it, and push it out of view.
void DirectoryList::KeepInView()
{
    if (toShow_.isValid()) scrollTo(toShow_, QAbstractItemView::PositionAtCenter);
}

} // namespace tarvex::panel
