#pragma once

#include <functional>
#include <utility>

namespace tarvex
{

/// Whether the program has ended. From the end on the event pump raises ProgramEnded in every pass,
/// and no handler starts, so that nothing more is written, sent or asked.
class ProgramEnd
{
public:
    /// Run once, at the end: stops the toolkit's own loop.
    void OnEnd(std::function<void()> ended) { onEnd_ = std::move(ended); }

    /// Ends the program; only the first call counts. `status` is the exit status.
    void End(int status)
    {
        if (ended_) return;
        ended_ = true;
        status_ = status;
        if (onEnd_) onEnd_();
    }

    bool Ended() const { return ended_; }
    int Status() const { return status_; }

private:
    std::function<void()> onEnd_;
    bool ended_ = false;
    int status_ = 0;
};

} // namespace tarvex
