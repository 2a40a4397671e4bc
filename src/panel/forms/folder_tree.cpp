#include "panel/forms/folder_tree.h"

#include "panel/forms/report_folder.h"
#include "platform/text/qt_text.h"

#include <QStyle>

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarvex::panel
{

namespace fs = std::filesystem;

/// One folder; those inside it in the order of their names.
struct FolderTree::Node {
    Name name;
    Node* parent = nullptr;
    Nodes inside;
    bool read = false;
};

namespace
{

using Name = fs::path::string_type;

/// The names of the folders inside one in order, hidden ones left out; none where it cannot be
/// looked into.
std::vector<Name> FoldersIn(const fs::path& folder)
{
    std::vector<Name> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code unknown;
        Name name = entry->path().filename().native();
        if (!IsHidden(entry->path()) && entry->is_directory(unknown))
            names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// The first of the nodes whose name does not come before that one.
template <class Nodes>
auto FirstFrom(Nodes& nodes, const Name& name)
{
    return std::lower_bound(
        nodes.begin(), nodes.end(), name,
        [](const auto& node, const Name& sought) { return node->name < sought; });
}

} // namespace

FolderTree::FolderTree(const QStyle& style, QObject* parent)
    : QAbstractItemModel(parent),
      top_(std::make_unique<Node>()),
      driveIcon_(style.standardIcon(QStyle::SP_DriveHDIcon)),
      folderIcon_(style.standardIcon(QStyle::SP_DirIcon))
{
}

FolderTree::~FolderTree() = default;

fs::path FolderTree::Folder(const QModelIndex& index)
{
    return index.isValid() ? PathOf(*NodeOf(index)) : fs::path();
}

QModelIndex FolderTree::RowOf(const fs::path& folder)
{
    QModelIndex row = Child({}, folder.root_path().native());
    for (const fs::path& name : folder.relative_path()) {
        if (!name.empty()) row = Child(row, name.native()); // empty after a closing separator
    }
    return row;
}

void FolderTree::Read(const QModelIndex& index)
{
    std::vector<Name> names = FoldersIn(Folder(index));
    NodeOf(index)->read = true;
    RemoveGone(index, names);
    AddArrived(index, std::move(names));
}

bool FolderTree::WasRead(const QModelIndex& index)
{
    return NodeOf(index)->read;
}

QModelIndex FolderTree::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || row >= rowCount(parent) || column != 0) return {};
    return createIndex(row, column, Inside(parent).inside[static_cast<std::size_t>(row)].get());
}

QModelIndex FolderTree::parent(const QModelIndex& index) const
{
    if (!index.isValid()) return {};
    Node* const above = NodeOf(index)->parent;
    return above == top_.get() ? QModelIndex() : createIndex(RowOfNode(*above), 0, above);
}

int FolderTree::rowCount(const QModelIndex& parent) const
{
    return static_cast<int>(Inside(parent).inside.size());
}

int FolderTree::columnCount(const QModelIndex&) const
{
    return 1;
}

bool FolderTree::hasChildren(const QModelIndex& parent) const
{
    const Node& node = Inside(parent);
    return !node.inside.empty() || (parent.isValid() && !node.read);
}

QVariant FolderTree::data(const QModelIndex& index, int role) const
{
    const Node& node = *NodeOf(index);
    if (role == Qt::DisplayRole) return PathToQString(node.name);
    if (role == Qt::DecorationRole) return node.parent == top_.get() ? driveIcon_ : folderIcon_;
    return {};
}

FolderTree::Node* FolderTree::NodeOf(const QModelIndex& index)
{
    return static_cast<Node*>(index.internalPointer());
}

fs::path FolderTree::PathOf(const Node& node)
{
    return node.parent == nullptr ? fs::path() : PathOf(*node.parent) / node.name;
}

int FolderTree::RowOfNode(const Node& node)
{
    Nodes& beside = node.parent->inside;
    return static_cast<int>(FirstFrom(beside, node.name) - beside.begin());
}

FolderTree::Node& FolderTree::Inside(const QModelIndex& index) const
{
    Node* const node = NodeOf(index); // none for the index of no row
    return node != nullptr ? *node : *top_;
}

/// The row of that name inside another, added when there is none.
QModelIndex FolderTree::Child(const QModelIndex& parent, const Name& name)
{
    Nodes& inside = Inside(parent).inside;
    const auto found = FirstFrom(inside, name);
    const auto row = found - inside.begin();
    if (found == inside.end() || (*found)->name != name)
        Insert(parent, static_cast<std::size_t>(row), {name});
    return index(static_cast<int>(row), 0, parent);
}

void FolderTree::RemoveGone(const QModelIndex& index, const std::vector<Name>& names)
{
    const fs::path folder = Folder(index);
    Nodes& inside = NodeOf(index)->inside;
    const auto gone = [&](const std::unique_ptr<Node>& node) {
        return !std::binary_search(names.begin(), names.end(), node->name) &&
               !CanBeListed(folder / node->name);
    };
    auto first = std::find_if(inside.begin(), inside.end(), gone);
    while (first != inside.end()) {
        const auto last = std::find_if_not(first, inside.end(), gone);
        beginRemoveRows(index, static_cast<int>(first - inside.begin()),
                        static_cast<int>(last - inside.begin()) - 1);
        first = inside.erase(first, last);
        endRemoveRows();
        first = std::find_if(first, inside.end(), gone);
    }
}

/// Adds the names that have no row, those between two rows in one step.
void FolderTree::AddArrived(const QModelIndex& index, std::vector<Name> names)
{
    const Nodes& inside = NodeOf(index)->inside;
    std::size_t row = 0;
    std::vector<Name> arrived;
    const auto insert = [&] {
        const std::size_t count = arrived.size();
        if (count > 0) Insert(index, row, std::exchange(arrived, {}));
        row += count;
    };
    for (Name& name : names) {
        if (row < inside.size() && inside[row]->name <= name) {
            insert();
            while (row < inside.size() && inside[row]->name < name)
                ++row;
        }
        if (row < inside.size() && inside[row]->name == name)
            ++row;
        else
            arrived.push_back(std::move(name));
    }
    insert();
}

void FolderTree::Insert(const QModelIndex& index, std::size_t row, std::vector<Name> names)
{
    Node& parent = Inside(index);
    Nodes nodes;
    nodes.reserve(names.size());
    for (Name& name : names)
        nodes.push_back(std::make_unique<Node>(Node{std::move(name), &parent, {}, false}));
    const auto first = static_cast<int>(row);
    beginInsertRows(index, first, first + static_cast<int>(nodes.size()) - 1);
    parent.inside.insert(parent.inside.begin() + first, std::make_move_iterator(nodes.begin()),
                         std::make_move_iterator(nodes.end()));
    endInsertRows();
}

} // namespace tarvex::panel
