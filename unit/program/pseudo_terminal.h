#pragma once

#include "unit/program/descriptor.h"

#include <string>
#include <string_view>

#include <termios.h>

namespace tarvex::unit
{

/// The unit's end of a serial line: the master of a pseudo terminal in raw mode, 9600 baud, two
/// stop bits. One descriptor of the other end stays open here, so that the line outlives the
/// manager's opening and closing it.
class PseudoTerminal
{
public:
    /// Throws std::system_error when the system has no terminal to give.
    PseudoTerminal();

    /// The name under which the manager opens its end.
    const std::string& Path() const { return path_; }

    /// The descriptor to wait on for bytes.
    int Number() const { return master_.Number(); }

    /// The descriptor to wait on for the manager's closing its end; -1 when the system reports
    /// none.
    int Closings() const { return closings_.Number(); }

    /// Takes note of the closings. A manager that was killed leaves its end exclusive, which would
    /// keep the next one out for as long as the unit holds that end open: the flag of a manager
    /// that no longer is there is taken away.
    void NoteClosings() const;

    /// What the manager has written since; empty when nothing is there. Never waits.
    std::string Read() const;

    /// Hands bytes to the manager. Those that nobody takes off the line are lost once its buffer is
    /// full. Never waits.
    void Write(std::string_view bytes) const;

    /// Gives up the descriptor of the other side: from now on the line is hung up, on this side
    /// only, while the manager does not hold its end open.
    void LeaveToManager() { slave_.Close(); }

    /// True while somebody holds the other side open.
    bool IsHeldByManager() const;

    /// The settings that the manager has given to its end.
    termios Settings() const;

    /// Takes the line away: the manager's end is hung up.
    void HangUp();

private:
    Descriptor master_;
    Descriptor slave_;
    Descriptor closings_;
    std::string path_;
};

} // namespace tarvex::unit
