#include "platform/reply_pause.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace tarvex::platform
{

namespace
{

using namespace std::chrono_literals;

// On the line: a start, eight data and two stop bits.
constexpr std::chrono::nanoseconds kCharacter = std::chrono::nanoseconds(11s) / 9600;
constexpr auto kAhead = 500us;     // before a reply is due, at the latest, a pause ends
constexpr auto kRest = 3ms;        // before it is due: a wake and its answer take 2.3 ms
constexpr auto kShortest = 4ms;    // a pause that spares a few looks
constexpr auto kPatience = 2ms;    // once it is due
constexpr auto kUnwatched = 100ms; // at most, once a pause is over

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
    timer_.callOnTimeout([this] { EndPause(); });
}

void ReplyPause::NoteOutput(qint64 count)
{
    End();
    sent_ = count;
    partSeen_ = partAtPace_ = false;
    outputAt_ = Clock::now();
}

void ReplyPause::End()
{
    expected_ = 0;
    if (std::exchange(pausing_, false)) timer_.start(kUnwatched);
}

/// A caller that waits now asks for the rest. If none does, the port is not left unwatched for
/// long.
void ReplyPause::EndPause()
{
    if (std::exchange(pausing_, false)) {
        timer_.start(kUnwatched);
    } else {
        Watch();
    }
}

void ReplyPause::Watch()
{
    if (pausing_) return;
    timer_.stop();
    if (notifier_) notifier_->setEnabled(true);
    notifier_.clear();
}

std::optional<DueInput> ReplyPause::Rest() const
{
    const bool isAtPace = cameAtPace_ || partAtPace_;
    const bool isAwaited = expected_ == 1 || (expected_ > 1 && isAtPace);
    if (!isAwaited || pausing_) return std::nullopt;
    const auto left = due_ - Clock::now();
    if (left > kRest || left < -kPatience) return std::nullopt;
    return DueInput{due_, due_ + kPatience, expected_ > 1};
}

void ReplyPause::Expect(qint64 count, qint64 received)
{
    expected_ = count;
    due_ = outputAt_ + (sent_ + count - received) * kCharacter;
    if (cameAtPace_) Pause();
}

void ReplyPause::NoteTaking(qint64 count)
{
    // No part of a single byte is ever seen: it can only come too fast.
    const bool wasAtPace = expected_ > 1 ? partSeen_ : cameAtPace_;
    if (expected_ > 0) cameAtPace_ = wasAtPace && ComesAtPace(count);
    End();
}

void ReplyPause::NoteArrival(qint64 received)
{
    if (received >= expected_) return;
    partSeen_ = true;
    partAtPace_ = ComesAtPace(received);
    if (!partAtPace_) return;
    // What begins late ends late.
    const auto dueNow = Clock::now() + (expected_ - received) * kCharacter;
    if (dueNow > due_ + kPatience) due_ = dueNow;
    Pause();
}

void ReplyPause::Pause()
{
    const auto pause = std::chrono::floor<std::chrono::milliseconds>(due_ - kAhead - Clock::now());
    if (pause < kShortest) return;
    if (!notifier_) notifier_ = ReadNotifierOf(port_);
    if (!notifier_) return;
    notifier_->setEnabled(false); // also when kept already: the toolkit enables it when it is read
    pausing_ = true;
    timer_.start(pause);
}

/// Nothing comes sooner on the line than after what was sent and what has come before.
bool ReplyPause::ComesAtPace(qint64 received) const
{
    return Clock::now() - outputAt_ >= (sent_ + received - 1) * kCharacter;
}

} // namespace tarvex::platform
