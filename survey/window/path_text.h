#pragma once

#include "survey/files/held_folder.h"

#include <QString>

#include <filesystem>
#include <optional>

class QUrl;

namespace tarvex::survey
{

/// The one door between paths and the toolkit's texts. A path is the system's own bytes, also such
/// as are no UTF-8; a text of one that is none does not lead back to it.

/// A path as the toolkit has it.
QString PathText(const std::filesystem::path& path);

/// The path that a text names.
std::filesystem::path PathOf(const QString& text);

/// The path of a file that was dropped, byte by byte.
std::filesystem::path PathOf(const QUrl& url);

/// True when the path's text leads back to it.
bool HasText(const std::filesystem::path& path);

/// A folder by a name that the toolkit can open: its own where that is text, else an alias that
/// holds as long as this object lives.
class NamedFolder
{
public:
    /// Holds the folder open when its own name is no text.
    explicit NamedFolder(const std::filesystem::path& folder);

    /// What the toolkit is to open.
    const QString& Name() const { return name_; }

    /// Its own path.
    const std::filesystem::path& Path() const { return folder_; }

    /// The path of a name that the toolkit gave, in the folder or anywhere else.
    std::filesystem::path PathOf(const QString& given) const;

private:
    std::filesystem::path folder_;
    QString name_;
    std::optional<HeldFolder> held_;
};

} // namespace tarvex::survey
