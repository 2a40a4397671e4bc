#include "platform/qt_path.h"

#include "core/path_text.h"
#include "platform/text/qt_text.h"

#include <QCoreApplication>

#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarvex::platform
{

namespace
{

#ifdef __linux__
constexpr const char* kOpenFiles = "/proc/self/fd/";

/// Holds a folder without reading it; -1 when that cannot be done.
int Hold(const std::filesystem::path& folder)
{
    return ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}
#endif

} // namespace

SpelledFolder::SpelledFolder(const std::filesystem::path& folder)
    : folder_(folder), spelling_(PathToQString(folder))
{
#ifdef __linux__
    if (path_text::IsUnicode(folder)) return;
    descriptor_ = Hold(folder);
    if (IsAlias()) spelling_ = kOpenFiles + QString::number(descriptor_);
#endif
}

SpelledFolder::~SpelledFolder()
{
#ifdef __linux__
    if (IsAlias()) ::close(descriptor_);
#endif
}

QString SpelledFolder::Spell(const std::filesystem::path& name) const
{
    return IsAlias() ? spelling_ + u'/' + PathToQString(name) : PathToQString(folder_ / name);
}

std::filesystem::path SpelledFolder::PathOf(const QString& given) const
{
    const QString inside = spelling_ + u'/';
    if (!IsAlias() || !given.startsWith(inside)) return PathFromQString(given);
    return folder_ / PathFromQString(given.mid(inside.size()));
}

std::filesystem::path NearestUnicode(std::filesystem::path folder)
{
    while (!path_text::IsUnicode(folder))
        folder = folder.parent_path();
    return folder;
}

std::filesystem::path ProgramFolder()
{
#ifdef __linux__
    std::error_code unreadable;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unreadable);
    if (!unreadable) return program.parent_path();
#endif
    return PathFromQString(QCoreApplication::applicationDirPath());
}

} // namespace tarvex::platform
