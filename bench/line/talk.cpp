#include "line/talk.h"

#include "program/unit_process.h"
#include "support/temporary_folder.h"

#include <QProcess>

#include <fstream>
#include <stdexcept>

namespace tarvex::bench
{

namespace
{

constexpr int kExchanges = 210; // the header's ten pages and two hundred of data
constexpr int kPatience = 120'000;

[[noreturn]] void GiveUp(const std::string& reason)
{
    throw std::runtime_error(reason);
}

QString Path(const tests::TemporaryFolder& folder, const char* name)
{
    return QString::fromStdString((folder / name).string());
}

double ProcessorOf(const Speaker& speaker, const tests::TemporaryFolder& folder)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const QString& setting : speaker.environment)
        environment.insert(setting.section('=', 0, 0), setting.section('=', 1));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QStringList arguments =
        speaker.takesFolder ? QStringList(QString::fromStdString(folder.Path().string()))
                            : QStringList{Path(folder, "com1"), QString::number(kExchanges)};
    process.start(speaker.program, arguments);
    if (!process.waitForFinished(kPatience) || process.exitCode() != 0)
        GiveUp(speaker.name + " does not come to its end");
    bool isNumber = false;
    const double seconds = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
    if (!isNumber) GiveUp(speaker.name + " does not say what it took");
    return seconds;
}

} // namespace

Talk Hold(const Speaker& speaker, const QStringList& unitOptions)
{
    const tests::TemporaryFolder folder;
    tests::UnitProcess unit(folder.Path(), unitOptions + QStringList{"--log", Path(folder, "log")});
    Talk talk;
    talk.processor = ProcessorOf(speaker, folder);
    unit.Stop();
    std::ifstream log(folder / "log");
    talk.cost = CostOf(unit::ReadLog(log));
    if (talk.cost.exchanges != kExchanges)
        GiveUp(speaker.name + " made " + std::to_string(talk.cost.exchanges) + " exchanges");
    return talk;
}

} // namespace tarvex::bench
