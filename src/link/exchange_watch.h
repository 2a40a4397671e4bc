#pragma once

#include "core/exchange_progress.h"

namespace tarvex
{

/// Follows one operation on the line for whoever looks on: what the link does and hears becomes the
/// operation's progress. Says nothing before the operation has named its exchanges, and nothing at
/// all without a progress to tell it to.
class ExchangeWatch
{
public:
    /// `progress`, unless null, must outlive it.
    explicit ExchangeWatch(ExchangeProgress* progress) : progress_(progress) {}
    /// The operation ends, however it was left.
    ~ExchangeWatch();
    ExchangeWatch(const ExchangeWatch&) = delete;
    ExchangeWatch& operator=(const ExchangeWatch&) = delete;

    /// The operation consists of that many exchanges; the first call begins it.
    void Expect(int exchanges);

    /// The wait has looked at the port and found so many bytes at that tick. It stalls when no byte
    /// has come for 30 ticks, and goes on with the next one.
    void Look(int received, int tick);

    /// The wait is over.
    void EndWait() { SetStalled(false); }

    /// A frame has gone out.
    void NoteFrame() { frameIsOut_ = true; }

    /// What a frame is followed by has ended as it should: an exchange, if a frame went out. The
    /// progress does not show it yet, for the unit waits for the next wake.
    void EndExchange();

    /// The progress shows the exchange that has ended. The end of the operation shows it too.
    void ShowEnded();

private:
    void SetStalled(bool stalled);

    ExchangeProgress* progress_;
    bool begun_ = false;
    bool frameIsOut_ = false;
    bool hasEnded_ = false; // an exchange that is not shown yet
    int received_ = 0;
    int heardAt_ = 0; // the tick when the last byte came, or the wait began
};

} // namespace tarvex
