#pragma once

#include "core/event_pump.h"
#include "core/program_end.h"

#include <QEventLoop>

namespace tarvex::platform
{

/// The toolkit's event queue. Once the program has ended, a pass runs no more events.
class QtEventPump : public EventPump
{
public:
    explicit QtEventPump(const ProgramEnd& end) : end_(end) {}

    void DoEvents() override;
    void WaitForEvents() override;

private:
    void Pass(QEventLoop::ProcessEventsFlags flags);
    void RequireRunning() const;

    const ProgramEnd& end_;
};

} // namespace tarvex::platform
