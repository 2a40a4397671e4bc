#include "program/line_programs.h"

#include <stdexcept>

namespace tarvex::tests
{

namespace
{

constexpr int kPatience = 20'000;  // milliseconds
constexpr qint64 kSilence = 2'000; // milliseconds without a word, while recording
const QString kPlayed = QStringLiteral("the record has been played");

QString Text(const std::filesystem::path& path)
{
    return QString::fromStdString(path.string());
}

/// Starts a program, and returns once it has printed the path of its terminal.
void Start(QProcess& process, const char* program, const QStringList& arguments)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QString::fromLatin1(program), arguments);
    while (!process.canReadLine())
        if (!process.waitForReadyRead(kPatience))
            throw std::runtime_error("no program at the line");
    process.readLine();
}

void End(QProcess& process)
{
    if (process.state() == QProcess::NotRunning) return;
    process.terminate();
    if (!process.waitForFinished(kPatience)) process.kill();
}

} // namespace

ReplayedLine::ReplayedLine(const std::filesystem::path& record, const std::filesystem::path& link)
{
    Start(unit_, TARVEX_UNIT, {"--replay", Text(record), "--fast", "--link", Text(link)});
}

bool ReplayedLine::AtTheEnd()
{
    while (unit_.canReadLine())
        said_ += QString::fromUtf8(unit_.readLine()).trimmed();
    return said_.contains(kPlayed) || unit_.state() == QProcess::NotRunning;
}

QStringList ReplayedLine::Finish()
{
    End(unit_);
    AtTheEnd();
    said_.removeAll(kPlayed);
    return said_;
}

TappedLine::TappedLine(const std::vector<std::string>& unitOptions,
                       const std::filesystem::path& folder, const std::filesystem::path& record,
                       const std::filesystem::path& link)
    : record_(record)
{
    QStringList arguments{"--demo", "--link", Text(folder / "adapter")};
    for (const auto& option : unitOptions)
        arguments += QString::fromStdString(option);
    Start(unit_, TARVEX_UNIT, arguments);
    Start(tap_, TARVEX_TAP,
          {Text(folder / "adapter"), "--link", Text(link), "--log", Text(record)});
    unchanged_.start();
}

bool TappedLine::AtTheEnd()
{
    const auto size = std::filesystem::file_size(record_);
    if (size != size_) unchanged_.restart();
    size_ = size;
    return unchanged_.elapsed() > kSilence;
}

QStringList TappedLine::Finish()
{
    End(tap_);
    End(unit_);
    return {};
}

} // namespace tarvex::tests
