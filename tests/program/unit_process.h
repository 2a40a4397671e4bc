#pragma once

#include <QProcess>
#include <QStringList>

#include <filesystem>

namespace tarvex::tests
{

/// The simulated unit as a process of its own, attached as "com1" in a folder.
class UnitProcess
{
public:
    /// Starts it with its demonstration memory and returns when it is ready. `options` are its
    /// further options; without "--paced" it works as fast as it can.
    UnitProcess(const std::filesystem::path& folder, QStringList options);
    ~UnitProcess();

    /// Ends it as a pulled adapter does: the line hangs up at once.
    void Pull();

    /// Ends it in order: memory and log are written.
    void Stop();

private:
    QProcess process_;
};

} // namespace tarvex::tests
