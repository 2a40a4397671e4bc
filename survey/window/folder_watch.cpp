#include "survey/window/folder_watch.h"

#include <system_error>

namespace tarvex::survey
{

namespace
{
namespace fs = std::filesystem;

constexpr int kPause = 300; // ms without a change

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

FolderWatch::FolderWatch(const std::function<void()>& changed)
{
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    QObject::connect(&pause_, &QTimer::timeout, &pause_, changed);
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &pause_,
                     [this](const QString& name) { Notice(name); });
}

void FolderWatch::Follow(const fs::path& folder)
{
    // All anew: a folder that was renamed would keep the watch under its old name.
    if (const auto before = watcher_.directories(); !before.isEmpty()) watcher_.removePaths(before);
    watched_.clear();
    folder_ = folder;
    held_.emplace(folder);
    Add(Above(folder));
    if (std::error_code error; fs::is_directory(folder, error)) AddAllFrom(folder);
}

void FolderWatch::Add(const fs::path& folder)
{
    watcher_.addPath(watched_.emplace_back(folder).Name());
}

/// Each is watched before it is read, so that what comes into it meanwhile is not missed.
void FolderWatch::AddAllFrom(const fs::path& folder)
{
    for (std::deque<fs::path> next{folder}; !next.empty() && Count() < kMostFolders;
         next.pop_front()) {
        Add(next.front());
        AddFoldersWithin(fs::path(next.front()), next);
    }
}

/// Of the folder above, only what becomes of the watched folder itself counts.
void FolderWatch::Notice(const QString& name)
{
    std::error_code error;
    if (name != watched_.front().Name() || !fs::equivalent(held_->Alias(), folder_, error))
        pause_.start();
}

} // namespace tarvex::survey
