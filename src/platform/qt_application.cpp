#include "platform/qt_application.h"

#include "core/failure.h"

#include <QMetaObject>

#include <exception>
#include <utility>

namespace tarvex::platform
{

void Application::OnFailure(Report report)
{
    report_ = std::move(report);
    failed_ = false;
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const ProgramEnded&) {
        // A handler that waits outside this one is ended by its own next pass of the pump.
    } catch (const std::exception& failure) {
        if (!report_) throw;
        Note(failure.what());
    }
    return false;
}

/// A paint that fails would fail again under its own box: the first failure is the one that counts.
void Application::Note(const std::string& reason)
{
    if (std::exchange(failed_, true)) return;
    const auto report = [this, reason] {
        if (report_) report_(reason);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
}

} // namespace tarvex::platform
