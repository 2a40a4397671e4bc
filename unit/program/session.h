#pragma once

#include "unit/adapter.h"
#include "unit/program/options.h"
#include "unit/program/pseudo_terminal.h"
#include "unit/program/waiter.h"
#include "unit/unit.h"

#include <fstream>
#include <ostream>

namespace tarvex::unit
{

/// One run of the program: a unit at the far end of a pseudo terminal, from the first byte to the
/// request to end.
class Session
{
public:
    /// Makes the unit as the options ask: the memory of the file if there is one, else a demo or a
    /// blank one, then the fills. Throws std::exception when a file cannot be used.
    explicit Session(const Options& options);

    /// Prints the terminal's path on the standard output and serves the line until the end is
    /// requested or a fault hangs up. The memory is kept after each write frame and at the end.
    void Run();

private:
    void SetUpClock();
    void SetUpLog();
    void Serve();
    bool Exchange(Waiter::Woken woken);
    void KeepMemory();

    Options options_;
    Waiter waiter_;
    PseudoTerminal terminal_;
    Unit unit_;
    Pacer pacer_;
    Adapter adapter_;
    std::ofstream logFile_;
    int keptWrites_ = 0;
};

} // namespace tarvex::unit
