#include "survey/window/folder_watch.h"

#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

/// Puts the folders within a folder at the end of a list; a link to a folder is none.
void AddFoldersWithin(const fs::path& folder, std::deque<fs::path>& list)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        if (std::error_code gone; entry->symlink_status(gone).type() == fs::file_type::directory)
            list.push_back(entry->path());
}

/// The nearest folder above one that is there; the file system's top is above itself.
fs::path Above(const fs::path& folder)
{
    std::error_code error;
    auto above = fs::absolute(folder, error).lexically_normal();
    if (!above.has_filename()) above = above.parent_path(); // what ended in a slash
    do
        above = above.parent_path();
    while (above.has_relative_path() && !fs::is_directory(above, error));
    return above;
}
} // namespace

FolderWatch::FolderWatch(const std::function<void()>& changed, std::chrono::milliseconds pause)
{
    pause_.setSingleShot(true);
    pause_.setInterval(pause);
    QObject::connect(&pause_, &QTimer::timeout, &pause_, changed);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &pause_,
                     [this](const QString& name) { Notice(name); });
    QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &pause_, [this] { PutOff(); });
}

void FolderWatch::Follow(const std::vector<fs::path>& folders)
{
    // All anew: what was renamed or replaced would keep the watch under its old name.
    if (const auto before = watcher_.directories() + watcher_.files(); !before.isEmpty())
        watcher_.removePaths(before);
    watched_.clear();
    tops_.clear();
    for (const auto& folder : folders)
        watcher_.addPath(tops_.emplace_back(folder).above.Name());
    AddAllBelow();
}

void FolderWatch::Add(const fs::path& folder)
{
    watcher_.addPath(watched_.emplace_back(folder).Name());
}

/// Each is watched before it is read, so that what comes into it meanwhile is not missed.
void FolderWatch::AddAllBelow()
{
    std::deque<fs::path> next;
    for (const auto& top : tops_)
        if (std::error_code error; fs::is_directory(top.folder, error)) next.push_back(top.folder);
    for (; !next.empty() && Count() < kMostFolders; next.pop_front()) {
        Add(next.front());
        AddFoldersWithin(fs::path(next.front()), next);
    }
}

/// Those that stay are not touched: what was written to them meanwhile would be missed.
void FolderWatch::FollowFiles(const std::vector<fs::path>& files)
{
    QStringList wanted;
    for (std::size_t i = 0; i < files.size() && i < kMostFiles; ++i)
        if (const auto name = NameOf(files[i]); !name.isEmpty()) wanted += name;
    wanted.removeDuplicates();
    auto dropped = watcher_.files();
    for (const auto& name : wanted)
        if (dropped.removeAll(name) == 0) watcher_.addPath(name);
    if (!dropped.isEmpty()) watcher_.removePaths(dropped);
}

/// By the name of its watched folder where its own path is no text.
QString FolderWatch::NameOf(const fs::path& file) const
{
    if (HasText(file)) return PathText(file);
    if (HasText(file.filename()))
        for (const auto& folder : watched_)
            if (folder.Path() == file.parent_path())
                return folder.Name() + QLatin1Char('/') + PathText(file.filename());
    return {};
}

/// Of a folder above, only what becomes of the folder that Follow was given counts.
void FolderWatch::Notice(const QString& name)
{
    bool isAbove = false;
    bool isOther = false;
    for (const auto& top : tops_)
        if (name == top.above.Name()) {
            isAbove = true;
            isOther = isOther || !top.IsTheSame();
        }
    if (!isAbove || isOther) PutOff();
}

void FolderWatch::PutOff()
{
    if (!pause_.isActive()) sinceFirst_.start();
    if (sinceFirst_.elapsed() < kMostPauses * pause_.interval()) pause_.start();
}

FolderWatch::Top::Top(const fs::path& path) : folder(path), held(path), above(Above(path)) {}

bool FolderWatch::Top::IsTheSame() const
{
    std::error_code error;
    return fs::equivalent(held.Alias(), folder, error);
}

} // namespace tarvex::survey
