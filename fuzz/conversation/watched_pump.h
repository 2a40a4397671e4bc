#pragma once

#include "core/event_pump.h"

namespace tarvex::fuzz
{

/// The pump of a conversation, which counts passes: a loop that only lets events run, and never
/// sleeps, takes the whole processor.
class WatchedPump : public EventPump
{
public:
    explicit WatchedPump(EventPump& pump) : pump_(pump) {}

    /// A handler starts: it may make so many passes more before somebody sleeps.
    void AllowAHandler() { allowed_ += kPassesOfAHandler; }

    void DoEvents() override;
    void WaitForEvents() override;

private:
    static constexpr int kPassesOfAHandler =
        20'000; // thirty blocks on a closed port take some 3000

    EventPump& pump_;
    int allowed_ = 0;
    int passes_ = 0; ///< since somebody slept
};

} // namespace tarvex::fuzz
