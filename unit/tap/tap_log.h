#pragma once

#include "unit/tap/line_joiner.h"

#include <optional>
#include <ostream>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// The log of a tap: what passes, joined into lines and written as soon as each is complete.
class TapLog
{
public:
    /// The stream must outlive the log.
    explicit TapLog(std::ostream& stream) : stream_(stream) {}

    /// Bytes that have passed, by the end that said them.
    void Passed(Speaker speaker, std::string_view bytes, Time at);

    /// Something that happened at one of the ends.
    void Happened(Speaker speaker, std::string_view note, Time at);

    /// When WriteDue has something to do next.
    std::optional<Time> NextDue() const { return joiner_.NextDue(); }

    /// Writes the piece at hand once it counts as ended.
    void WriteDue(Time now);

    /// Writes the piece at hand: nothing more comes.
    void Finish();

private:
    void Write(const std::vector<LogLine>& lines);

    std::ostream& stream_;
    LineJoiner joiner_;
};

} // namespace tarvex::unit
