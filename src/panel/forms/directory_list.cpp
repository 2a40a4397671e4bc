#include "panel/forms/directory_list.h"

#include "core/failure.h"
#include "panel/forms/report_folder.h"
#include "panel/forms/texts.h"

#include <QHeaderView>
#include <QStyle>

#include <algorithm>
#include <system_error>
#include <vector>

namespace tarvex::panel
{

namespace
{

namespace fs = std::filesystem;

/// One folder of the tree; its path is kept as the system gave it, also where it is no readable
/// text.
class FolderItem final : public QTreeWidgetItem
{
public:
    FolderItem(const fs::path& path, const QIcon& icon) : folder(path)
    {
        setText(0, FromPath(path.has_filename() ? path.filename() : path));
        setIcon(0, icon);
        setChildIndicatorPolicy(
            ShowIndicator); // whether there is anything in it shows when it is opened
    }

    const fs::path folder;
};

const fs::path& FolderOf(const QTreeWidgetItem& item)
{
    return static_cast<const FolderItem&>(item).folder;
}

QTreeWidgetItem* ChildOf(const QTreeWidgetItem& parent, const fs::path& folder)
{
    for (int row = 0; row < parent.childCount(); ++row) {
        if (FolderOf(*parent.child(row)) == folder) return parent.child(row);
    }
    return nullptr;
}

/// The folders inside one, hidden ones left out; none where it cannot be looked into.
std::vector<fs::path> FoldersIn(const fs::path& folder)
{
    std::vector<fs::path> folders;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unknown;
        const bool hidden = FromPath(entry->path().filename()).startsWith(u'.');
        if (!hidden && entry->is_directory(unknown)) folders.push_back(entry->path());
    }
    return folders;
}

} // namespace

DirectoryList::DirectoryList(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { Read(*item); });
    connect(this, &QTreeWidget::currentItemChanged, this, [this] {
        if (changed_) changed_();
    });
}

fs::path DirectoryList::Folder() const
{
    return currentItem() == nullptr ? fs::path() : FolderOf(*currentItem());
}

void DirectoryList::SetFolder(const fs::path& folder)
{
    if (!CanBeListed(folder)) throw RunTimeFailure("Path not found");
    QTreeWidgetItem* item = ItemOf(folder.lexically_normal());
    setCurrentItem(item);
    expandItem(item);
    scrollToItem(item, QAbstractItemView::PositionAtCenter);
}

// The marked row reaches across the list, and a long one makes it scroll sideways.
void DirectoryList::resizeEvent(QResizeEvent* event)
{
    header()->setMinimumSectionSize(viewport()->width());
    QTreeWidget::resizeEvent(event);
    if (currentItem() != nullptr) scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

/// The item of a drive, or of the one root that there is; made when it is first asked for.
QTreeWidgetItem* DirectoryList::RootOf(const fs::path& folder)
{
    const fs::path root = folder.root_path();
    for (int row = 0; row < topLevelItemCount(); ++row) {
        if (FolderOf(*topLevelItem(row)) == root) return topLevelItem(row);
    }
    auto* item = new FolderItem(root, style()->standardIcon(QStyle::SP_DriveHDIcon));
    addTopLevelItem(item);
    return item;
}

/// The item of a folder, with all above it read and open. A hidden folder gets its item here.
QTreeWidgetItem* DirectoryList::ItemOf(const fs::path& folder)
{
    QTreeWidgetItem* item = RootOf(folder);
    fs::path path = folder.root_path();
    for (const fs::path& name : folder.relative_path()) {
        if (name.empty()) continue; // behind a closing separator
        path /= name;
        if (item->isExpanded()) Read(*item);
        expandItem(item);
        QTreeWidgetItem* child = ChildOf(*item, path);
        if (child == nullptr) {
            child = new FolderItem(path, item->icon(0));
            item->addChild(child);
        }
        item = child;
    }
    return item;
}

/// Brings the children up to what is in the folder now. The current folder and those above it stay.
void DirectoryList::Read(QTreeWidgetItem& item) const
{
    const std::vector<fs::path> folders = FoldersIn(FolderOf(item));
    for (int row = item.childCount() - 1; row >= 0; --row) {
        const fs::path& child = FolderOf(*item.child(row));
        if (std::find(folders.begin(), folders.end(), child) == folders.end() &&
            !CanBeListed(child)) {
            delete item.takeChild(row);
        }
    }
    QList<QTreeWidgetItem*> arrived;
    for (const fs::path& folder : folders) {
        if (ChildOf(item, folder) == nullptr)
            arrived.append(new FolderItem(folder, style()->standardIcon(QStyle::SP_DirIcon)));
    }
    item.addChildren(arrived);
    if (item.childCount() == 0)
        item.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

} // namespace tarvex::panel
