#pragma once

#include <QPointer>
#include <QSerialPort>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>

namespace tarvex::platform
{

/// Lets the program sleep while an awaited reply comes down the line. Its characters follow each
/// other at the pace of the line, and none of them is worth waking up for but the last ones: the
/// port is not looked at until the reply is nearly whole, and for the first of them only where the
/// reply before has not come at that pace. Where the bytes come faster, from a terminal or in a
/// burst, each is looked at as it comes.
class ReplyPause
{
public:
    /// Works on `port`, which must outlive it.
    explicit ReplyPause(QSerialPort& port);

    /// So many bytes go out now; a pause ends.
    void NoteOutput(qint64 count);

    /// The next thing that matters is the moment when `count` bytes are there.
    void Expect(qint64 count);

    /// `count` bytes are taken now.
    void NoteTaking(qint64 count);

    /// The port is looked at again, and nothing is expected any more.
    void End();

private:
    using Clock = std::chrono::steady_clock;

    void TakeArrival();
    void Pause(std::chrono::nanoseconds length);
    void Look();
    bool ComesAtPace(qint64 received) const;

    QSerialPort& port_;
    QPointer<QSocketNotifier> notifier_; // not watching while the pause lasts; otherwise null
    QTimer timer_;
    Clock::time_point outputAt_;
    qint64 sent_ = 0;
    qint64 expected_ = 0;
    bool partSeen_ = false;   // of the reply, before it was whole
    bool cameAtPace_ = false; // the reply before
};

} // namespace tarvex::platform
