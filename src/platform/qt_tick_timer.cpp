#include "platform/qt_tick_timer.h"

#include <chrono>
#include <utility>

namespace tarvex::platform
{

using namespace std::chrono_literals;

QtTickTimer::QtTickTimer(std::function<void()> tick)
{
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(100ms);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(tick));
}

/// Starting a running timer would restart its period.
void QtTickTimer::Enable()
{
    if (!timer_.isActive()) timer_.start();
}

void QtTickTimer::Disable()
{
    timer_.stop();
}

} // namespace tarvex::platform
