#pragma once

#include "survey/window/path_text.h"

#include <QFileSystemWatcher>
#include <QTimer>

#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>

namespace tarvex::survey
{

/// Says when something has changed in a folder or in one below it.
class FolderWatch
{
public:
    /// No more folders than these are watched, the nearest first: the system has a limit for all
    /// programs together.
    static constexpr std::size_t kMostFolders = 256;

    /// `changed` is called once the changes have paused; it is to call Follow again and to read
    /// the folder then.
    explicit FolderWatch(const std::function<void()>& changed);

    /// Watches this folder and those below it in place of all others. While it is not there, the
    /// nearest above it is watched.
    void Follow(const std::filesystem::path& folder);

    /// How many folders are watched, the one above them too.
    std::size_t Count() const { return watched_.size(); }

private:
    void Add(const std::filesystem::path& folder);
    void AddAllFrom(const std::filesystem::path& folder);
    void Notice(const QString& name);

    QFileSystemWatcher watcher_;
    QTimer pause_;
    std::filesystem::path folder_;
    std::optional<HeldFolder> held_;   // the folder itself, whatever has its name by now
    std::deque<NamedFolder> watched_; // the one above first
};

} // namespace tarvex::survey
