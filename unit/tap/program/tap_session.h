#pragma once

#include "unit/program/pseudo_terminal.h"
#include "unit/program/waiter.h"
#include "unit/tap/marked_bytes.h"
#include "unit/tap/program/opening_watch.h"
#include "unit/tap/program/serial_device.h"
#include "unit/tap/program/tap_options.h"
#include "unit/tap/tap_log.h"

#include <fstream>

namespace tarvex::unit
{

/// One run of the tap: the adapter on one side, a pseudo terminal for the manager on the other, and
/// a log of what passes.
class TapSession
{
public:
    /// Throws std::exception when the adapter or the log cannot be opened.
    explicit TapSession(const TapOptions& options);

    /// Prints the terminal's path and passes everything on until the end is requested or the
    /// adapter goes away, which hangs up the manager's end.
    void Run();

private:
    std::ostream& OpenLog();
    void Serve();
    bool PassFromUnit();
    void PassFromManager();
    void PassSettings();
    void FollowOpening();

    TapOptions options_;
    std::ofstream logFile_;
    SerialDevice device_;
    PseudoTerminal terminal_;
    OpeningWatch watch_;
    Waiter waiter_;
    TapLog log_;
    MarkedBytes marks_;
    std::string settings_;
    bool managerThere_ = false;
};

} // namespace tarvex::unit
