#include "panel/widgets/tip_text.h"

#include <QStringList>

namespace tarvex::panel
{

namespace
{

constexpr qsizetype kLineLength = 60;

QString Broken(QString line)
{
    qsizetype begin = 0; // of the line that the words go to
    for (auto blank = line.indexOf(' '); blank >= 0; blank = line.indexOf(' ', blank + 1)) {
        const auto next = line.indexOf(' ', blank + 1);
        if ((next < 0 ? line.size() : next) - begin <= kLineLength) continue;
        line[blank] = '\n';
        begin = blank + 1;
    }
    return line;
}

} // namespace

QString TipText(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split('\n'))
        lines << Broken(line);
    return lines.join('\n');
}

} // namespace tarvex::panel
