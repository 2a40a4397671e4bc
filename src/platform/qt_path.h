#pragma once

#include <QString>

#include <filesystem>

namespace tarvex::platform
{

/// A folder as the toolkit can open it, whose own paths are Unicode: by its path where that is
/// Unicode, else through the process's table of open files, as long as this object lives.
class SpelledFolder
{
public:
    /// Opens the folder for its alias when its path is no Unicode; when that fails, the toolkit
    /// gets the path as far as it can be shown.
    explicit SpelledFolder(const std::filesystem::path& folder);
    ~SpelledFolder();
    SpelledFolder(const SpelledFolder&) = delete;
    SpelledFolder& operator=(const SpelledFolder&) = delete;

    /// The folder for the toolkit; empty for an empty path.
    const QString& Spelling() const { return spelling_; }

    /// A file in the folder, for the toolkit.
    QString Spell(const std::filesystem::path& name) const;

    /// True when the folder has no name of its own in the toolkit.
    bool IsAlias() const { return descriptor_ >= 0; }

    /// The path, in the system's own bytes, of one that the toolkit gave.
    std::filesystem::path PathOf(const QString& given) const;

private:
    std::filesystem::path folder_;
    QString spelling_;
    int descriptor_ = -1;
};

/// The nearest folder above `folder` that the toolkit can name.
std::filesystem::path NearestUnicode(std::filesystem::path folder);

/// The folder that this program lies in.
std::filesystem::path ProgramFolder();

} // namespace tarvex::platform
