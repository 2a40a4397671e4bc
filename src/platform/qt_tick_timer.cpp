#include "platform/qt_tick_timer.h"

#include <chrono>
#include <utility>

namespace tarvex::platform
{

using namespace std::chrono_literals;

namespace
{

// On Windows a precise timer may run out without ending a wait for events.
#ifdef _WIN32
constexpr Qt::TimerType kType = Qt::CoarseTimer;
#else
constexpr Qt::TimerType kType = Qt::PreciseTimer;
#endif

} // namespace

QtTickTimer::QtTickTimer(std::function<void()> tick)
{
    timer_.setTimerType(kType);
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
