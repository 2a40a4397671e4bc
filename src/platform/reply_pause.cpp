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
constexpr auto kAhead = 500us;     // of the moment when a reply is due, a pause ends, or earlier
constexpr auto kRest = 3ms;        // is awaited: a wake and its answer take 2.3 ms on the line
constexpr auto kShortest = 4ms;    // a pause that spares a few looks
constexpr auto kPatience = 2ms;    // with the rest, once it is due
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
    const auto due = outputAt_ + (sent_ + expected_) * kCharacter;
    const auto left = due - Clock::now();
    if (left > kRest || left < -kPatience) return std::nullopt;
    return DueInput{due, due + kPatience, expected_ > 1};
}

void ReplyPause::Expect(qint64 count, qint64 received)
{
    expected_ = count;
    if (!cameAtPace_) return;
    Pause(outputAt_ + (sent_ + count - received) * kCharacter - Clock::now());
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
    Pause((expected_ - received) * kCharacter);
}

/// For a reply that is due after so long.
void ReplyPause::Pause(std::chrono::nanoseconds due)
{
    const auto pause = std::chrono::floor<std::chrono::milliseconds>(due - kAhead);
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
