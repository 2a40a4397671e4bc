#pragma once

#include "core/event_pump.h"

#include <QTimer>

#include <functional>

namespace tarvex::platform
{

/// `Timer1` on the toolkit: a precise period of 100 ms.
class QtTickTimer : public TickTimer
{
public:
    /// `tick` runs at the end of every period while the timer is enabled, inside a pass of the
    /// event queue. It must not raise anything and not wait: no tick comes while it runs.
    explicit QtTickTimer(std::function<void()> tick);

    void Enable() override;
    void Disable() override;

private:
    QTimer timer_;
};

} // namespace tarvex::platform
