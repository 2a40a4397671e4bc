#pragma once

#include <QTreeWidget>

#include <filesystem>
#include <functional>
#include <utility>

namespace tarvex::panel
{

/// The directory list `Dir1`: the folders of the machine as a tree, of which one is the current
/// one. A folder is read when it is opened, and once more each time that it is opened again; no
/// file is looked into.
class DirectoryList : public QTreeWidget
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
    void resizeEvent(QResizeEvent* event) override;

private:
    QTreeWidgetItem* RootOf(const std::filesystem::path& folder);
    QTreeWidgetItem* ItemOf(const std::filesystem::path& folder);
    void Read(QTreeWidgetItem& item) const;

    std::function<void()> changed_;
};

} // namespace tarvex::panel
