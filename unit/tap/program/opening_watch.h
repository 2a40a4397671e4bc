#pragma once

#include "unit/program/descriptor.h"

#include <string>

namespace tarvex::unit
{

/// Notices when somebody opens a terminal: without it the end of a line that nobody holds open
/// could only be asked again and again.
class OpeningWatch
{
public:
    /// Throws std::system_error when the system cannot watch that path.
    explicit OpeningWatch(const std::string& path);

    /// The descriptor to wait on.
    int Number() const { return events_.Number(); }

    /// True when somebody has opened it since the last time that this was asked.
    bool WasOpened() const;

private:
    Descriptor events_;
};

} // namespace tarvex::unit
