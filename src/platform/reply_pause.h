#pragma once

#include "platform/due_input.h"

#include <QPointer>
#include <QSerialPort>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <optional>

namespace tarvex::platform
{

/// Lets the program sleep while an awaited reply comes down the line. Its characters follow each
/// other at the pace of the line, and none of them is worth waking up for but the last ones: the
/// port is not looked at until the reply is nearly whole, and for the first of them only where the
/// reply before has not come at that pace. Then whoever waits may take the last ones from the line
/// itself, and as long as that goes well the event queue does not watch the line at all. Where the
/// bytes come faster, from a terminal or in a burst, each is looked at as it comes.
class ReplyPause
{
public:
    /// Works on `port`, which must outlive it.
    explicit ReplyPause(QSerialPort& port);

    /// So many bytes go out now; a pause ends.
    void NoteOutput(qint64 count);

    /// The next thing that matters is the moment when `count` bytes are there; `received` are.
    void Expect(qint64 count, qint64 received);

    /// So many bytes are there by now.
    void NoteArrival(qint64 received);

    /// The last of what is expected, where it is worth being awaited at the line itself. Not where
    /// it is not due now: in a pause, with most of it still to come, when it is late, and where
    /// neither the reply before nor what is there of this one has come at the pace of the line. A
    /// single character is awaited whatever came before: it is on the line so briefly.
    std::optional<DueInput> Rest() const;

    /// Has the event queue watch the line again, unless there is a pause; without this it does so a
    /// tenth of a second after the pause.
    void Watch();

    /// `count` bytes are taken now.
    void NoteTaking(qint64 count);

    /// Nothing is expected any more.
    void End();

private:
    using Clock = DueInput::Clock;

    void Pause();
    void EndPause();
    bool ComesAtPace(qint64 received) const;

    QSerialPort& port_;
    QPointer<QSocketNotifier> notifier_; // while it is kept from watching, otherwise null
    QTimer timer_;                       // runs as long as that lasts
    Clock::time_point outputAt_;
    Clock::time_point due_; // what is expected, in full
    qint64 sent_ = 0;
    qint64 expected_ = 0;
    bool pausing_ = false;
    bool partSeen_ = false;   // of the reply, before it was whole
    bool partAtPace_ = false; // as it was seen last
    bool cameAtPace_ = false; // the reply before
};

} // namespace tarvex::platform
