#include "program/unit_process.h"

#include <stdexcept>

namespace tarvex::tests
{

UnitProcess::UnitProcess(const std::filesystem::path& folder, QStringList options)
{
    const bool paced = options.removeAll(QStringLiteral("--paced")) > 0;
    QStringList arguments = {QStringLiteral("--demo"), QStringLiteral("--link"),
                             QString::fromStdString((folder / "com1").string())};
    if (!paced) arguments << QStringLiteral("--fast");
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(TARVEX_UNIT), arguments << options);
    if (!process_.waitForReadyRead(10'000)) throw std::runtime_error("the unit does not start");
}

UnitProcess::~UnitProcess()
{
    Stop();
}

void UnitProcess::Pull()
{
    process_.kill();
    process_.waitForFinished();
}

void UnitProcess::Stop()
{
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (!process_.waitForFinished(5'000)) Pull();
}

} // namespace tarvex::tests
