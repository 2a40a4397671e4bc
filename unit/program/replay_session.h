#pragma once

#include "unit/program/options.h"
#include "unit/program/pseudo_terminal.h"
#include "unit/program/waiter.h"
#include "unit/replay.h"

namespace tarvex::unit
{

/// One run of the program that answers from the record of a line.
class ReplaySession
{
public:
    /// Throws std::exception when the record cannot be read.
    explicit ReplaySession(const Options& options);

    /// Prints the terminal's path, then each difference between the manager and the recorded one,
    /// and when the record has been played, until the end is requested or the record hangs up.
    /// False when there was a difference.
    bool Run();

private:
    bool Exchange(Waiter::Woken woken);

    Options options_;
    Waiter waiter_;
    PseudoTerminal terminal_;
    Replay replay_;
    bool same_ = true;
    bool played_ = false;
};

} // namespace tarvex::unit
