#pragma once

#include <QAbstractFileIconProvider>
#include <QFileSystemModel>
#include <QTreeView>

#include <filesystem>
#include <functional>
#include <utility>

namespace tarvex::panel
{

/// One picture for every folder, on a machine without an icon theme too. It answers without a look
/// at the disk: finding out a type by content opens every file there is, and never comes back from
/// some of the system's own.
class FolderIcons : public QAbstractFileIconProvider
{
public:
    explicit FolderIcons(QIcon icon) : icon_(std::move(icon)) {}

    QIcon icon(IconType) const override { return icon_; }
    QIcon icon(const QFileInfo&) const override { return icon_; }
    QString type(const QFileInfo&) const override { return {}; }

private:
    QIcon icon_;
};

/// The directory list `Dir1`: the folders of the machine as a tree, of which one is the current
/// one. It follows what happens on the disk, and reads folders without holding up the window.
class DirectoryList : public QTreeView
{
public:
    explicit DirectoryList(QWidget* parent);

    /// The current folder; empty when there is none.
    std::filesystem::path Folder() const;

    /// Makes `folder` the current one and brings it into view. Raises RunTimeFailure when it cannot
    /// be looked into.
    void SetFolder(const std::filesystem::path& folder);

    /// Run when another folder has become the current one.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FollowArrivals();
    void KeepInView();

    FolderIcons icons_;
    QFileSystemModel model_;
    QPersistentModelIndex toShow_;
    std::function<void()> changed_;
};

} // namespace tarvex::panel
