#pragma once

#include <QTreeView>

#include <filesystem>
#include <functional>
#include <utility>

namespace tarvex::panel
{

class FolderTree;

/// The directory list `Dir1`: the folders of the machine as a tree, of which one is the current
/// one. A folder is read when it is opened, and once more each time that it is opened again; no
/// file is looked into. Those on the way to a folder that is gone to show only that way, until one
/// of them is made the current one or is opened again.
class DirectoryList : public QTreeView
{
public:
    /// An empty tree until SetFolder.
    explicit DirectoryList(QWidget* parent);

    /// The current folder; empty when there is none.
    std::filesystem::path Folder() const;

    /// Makes `folder` the current one and brings it into view. Raises RunTimeFailure when it cannot
    /// be looked into.
    void SetFolder(const std::filesystem::path& folder);

    /// Run when another folder has become the current one.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void OpenWayTo(const QModelIndex& index);

    FolderTree* tree_;
    std::function<void()> changed_;
};

} // namespace tarvex::panel
