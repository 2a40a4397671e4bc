#pragma once

#include "survey/window/path_text.h"

#include <QElapsedTimer>
#include <QFileSystemWatcher>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <functional>
#include <vector>

namespace tarvex::survey
{

/// Says when something has changed in a folder or in one below it, or was written to a file.
class FolderWatch
{
public:
    /// No more folders than these are watched, the nearest first: the system has a limit for all
    /// programs together.
    static constexpr std::size_t kMostFolders = 256;

    /// No more files than these are watched.
    static constexpr std::size_t kMostFiles = 256;

    /// Long enough for a report that is being written to be whole, short enough not to be noticed.
    static constexpr std::chrono::milliseconds kPause{300};

    /// What changes for good is read this many pauses after its first change.
    static constexpr int kMostPauses = 10;

    /// `changed` is called once there was no change for `pause`, or after kMostPauses of changes;
    /// it is to call Follow and FollowFiles again and to read the folder and the files then.
    explicit FolderWatch(const std::function<void()>& changed,
                         std::chrono::milliseconds pause = kPause);

    /// Watches these folders, none of them within another, and those below them in place of all
    /// folders and files before. While one is not there, the nearest above it is watched.
    void Follow(const std::vector<std::filesystem::path>& folders);

    /// Watches these files in place of those before, the first of them where they are too many: a
    /// folder does not say that one of its files was written again. A file whose own name is no
    /// UTF-8 is not watched.
    void FollowFiles(const std::vector<std::filesystem::path>& files);

    /// How many folders are watched, those above them too.
    std::size_t Count() const { return tops_.size() + watched_.size(); }

private:
    /// A folder that Follow was given.
    struct Top {
        explicit Top(const std::filesystem::path& path);
        bool IsTheSame() const;

        std::filesystem::path folder;
        HeldFolder held; // the folder itself, whatever has its name by now
        NamedFolder above;
    };

    void Add(const std::filesystem::path& folder);
    void AddAllBelow();
    void Notice(const QString& name);
    void PutOff();
    QString NameOf(const std::filesystem::path& file) const;

    QFileSystemWatcher watcher_;
    QTimer pause_;
    QElapsedTimer sinceFirst_; // of the changes that are put off
    std::deque<Top> tops_;
    std::deque<NamedFolder> watched_; // those at and below the tops
};

} // namespace tarvex::survey
