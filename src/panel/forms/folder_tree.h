#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include <filesystem>
#include <memory>
#include <vector>

class QStyle;

namespace tarvex::panel
{

/// The folders of the machine as far as they have been asked for. Each keeps its name alone, as the
/// system gave it, also where it is no readable text; its path is put together when it is wanted.
class FolderTree : public QAbstractItemModel
{
public:
    /// Without rows until they are asked for; `style` gives the icons.
    FolderTree(const QStyle& style, QObject* parent);
    ~FolderTree() override;

    /// The path of a row; empty for none.
    static std::filesystem::path Folder(const QModelIndex& index);

    /// The row of a folder. Those above it and its own are added where they are missing, nothing
    /// else is listed, and the folder need not exist.
    QModelIndex RowOf(const std::filesystem::path& folder);

    /// Brings the rows inside a folder up to what is there now, hidden folders left out. Rows that
    /// stay keep their place; a hidden folder that has got its row by RowOf stays while it can be
    /// looked into.
    void Read(const QModelIndex& index);

    /// True when the folder has been read, so that all that is inside it is shown.
    static bool WasRead(const QModelIndex& index);

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    /// True for a folder not yet read: what is in it shows when it is opened.
    bool hasChildren(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    using Name = std::filesystem::path::string_type;
    struct Node;
    using Nodes = std::vector<std::unique_ptr<Node>>;

    static Node* NodeOf(const QModelIndex& index);
    static std::filesystem::path PathOf(const Node& node);
    static int RowOfNode(const Node& node);
    Node& Inside(const QModelIndex& index) const;
    QModelIndex Child(const QModelIndex& parent, const Name& name);
    void RemoveGone(const QModelIndex& index, const std::vector<Name>& names);
    void AddArrived(const QModelIndex& index, std::vector<Name> names);
    void Insert(const QModelIndex& index, std::size_t row, std::vector<Name> names);

    std::unique_ptr<Node> top_; // the roots are inside it
    const QIcon driveIcon_;     // each icon once: a new copy keeps pictures of its own
    const QIcon folderIcon_;
};

} // namespace tarvex::panel
