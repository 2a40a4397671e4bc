#include "platform/reply_pause.h"

#include <algorithm>
#include <chrono>

namespace tarvex::platform
{

namespace
{

using namespace std::chrono_literals;

// On the line: a start, eight data and two stop bits.
constexpr std::chrono::nanoseconds kCharacter = std::chrono::nanoseconds(11s) / 9600;
constexpr qint64 kWatched = 2;  // last characters, each of which is looked at
constexpr auto kShortest = 4ms; // a pause that spares a few looks

/// What the toolkit watches the line with; null when it does so in another way.
QSocketNotifier* ReadNotifierOf(const QSerialPort& port)
{
    const auto notifiers = port.findChildren<QSocketNotifier*>(Qt::FindDirectChildrenOnly);
    const auto found = std::ranges::find(notifiers, QSocketNotifier::Read, &QSocketNotifier::type);
    return found != notifiers.end() ? *found : nullptr;
}

} // namespace

ReplyPause::ReplyPause(QSerialPort& port) : port_(port)
{
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] { Look(); });
    QObject::connect(&port_, &QSerialPort::readyRead, &timer_, [this] { TakeArrival(); });
}

void ReplyPause::NoteOutput(qint64 count)
{
    End();
    sent_ = count;
    partSeen_ = false;
    outputAt_ = Clock::now();
}

void ReplyPause::End()
{
    expected_ = 0;
    Look();
}

void ReplyPause::Look()
{
    timer_.stop();
    if (notifier_) notifier_->setEnabled(true);
    notifier_.clear();
}

void ReplyPause::Expect(qint64 count)
{
    expected_ = count;
    if (!cameAtPace_) return;
    const qint64 missing = count - port_.bytesAvailable() - kWatched;
    Pause(outputAt_ + (sent_ + missing) * kCharacter - Clock::now());
}

void ReplyPause::NoteTaking(qint64 count)
{
    if (expected_ > 0) cameAtPace_ = partSeen_ && ComesAtPace(count);
    End();
}

void ReplyPause::TakeArrival()
{
    const qint64 received = port_.bytesAvailable();
    if (received >= expected_) return;
    partSeen_ = true;
    if (!ComesAtPace(received)) return;
    Pause((expected_ - received - kWatched) * kCharacter);
}

void ReplyPause::Pause(std::chrono::nanoseconds length)
{
    const auto pause = std::chrono::floor<std::chrono::milliseconds>(length);
    if (pause < kShortest) return;
    notifier_ = ReadNotifierOf(port_);
    if (!notifier_) return;
    notifier_->setEnabled(false);
    timer_.start(pause);
}

/// Nothing comes sooner on the line than after what was sent and what has come before.
bool ReplyPause::ComesAtPace(qint64 received) const
{
    return Clock::now() - outputAt_ >= (sent_ + received - 1) * kCharacter;
}

} // namespace tarvex::platform
