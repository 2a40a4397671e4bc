#include "survey/window/path_text.h"

#include <QUrl>

namespace tarvex::survey
{

namespace fs = std::filesystem;

QString PathText(const fs::path& path)
{
    return QString::fromStdString(path.native());
}

fs::path PathOf(const QString& text)
{
    return text.toStdString();
}

fs::path PathOf(const QUrl& url)
{
    const auto coded = url.path(QUrl::FullyEncoded).toLatin1();
    return QByteArray::fromPercentEncoding(coded).toStdString();
}

bool HasText(const fs::path& path)
{
    return PathOf(PathText(path)).native() == path.native();
}

NamedFolder::NamedFolder(const fs::path& folder) : folder_(folder), name_(PathText(folder))
{
    if (HasText(folder)) return;
    held_.emplace(folder);
    if (const auto alias = held_->Alias(); !alias.empty()) name_ = PathText(alias);
}

fs::path NamedFolder::PathOf(const QString& given) const
{
    const QString inside = name_ + QLatin1Char('/');
    if (held_ && given.startsWith(inside))
        return folder_ / survey::PathOf(given.mid(inside.size()));
    return survey::PathOf(given);
}

} // namespace tarvex::survey
