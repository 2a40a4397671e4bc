#include "platform/qt_event_pump.h"

#include "core/failure.h"

#include <QCoreApplication>

namespace tarvex::platform
{

void QtEventPump::DoEvents()
{
    Pass(QEventLoop::AllEvents);
}

void QtEventPump::WaitForEvents()
{
    Pass(QEventLoop::WaitForMoreEvents);
#ifdef _WIN32
    // There the toolkit runs what has ended its sleep only in its next pass, and then sleeps on.
    DoEvents();
#endif
}

/// Checked before the pass too: a wait that slept after the program's end might never wake.
void QtEventPump::Pass(QEventLoop::ProcessEventsFlags flags)
{
    RequireRunning();
    QCoreApplication::processEvents(flags);
    RequireRunning();
}

void QtEventPump::RequireRunning() const
{
    if (end_.Ended()) throw ProgramEnded();
}

} // namespace tarvex::platform
