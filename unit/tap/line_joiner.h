#pragma once

#include "unit/line_log.h"

#include <optional>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// Joins the bytes of both directions, as they come, into the lines of a log: a wake, an answer to
/// it, a frame up to its CR, a page up to its LF. A piece that ends otherwise becomes a line when
/// the other end speaks, when something happens to the line, or after a pause.
class LineJoiner
{
public:
    /// The pause after which a piece counts as ended: characters of one frame follow each other by
    /// little more than a millisecond, and adapters hand them on within some 16 ms.
    static constexpr Time kPause{30'000};

    /// Takes bytes that have passed at `at`, and returns the lines that are complete with them.
    std::vector<LogLine> Take(Speaker speaker, std::string_view bytes, Time at);

    /// The same for something that happened at one of the ends.
    std::vector<LogLine> Note(Speaker speaker, std::string_view note, Time at);

    /// When the piece at hand counts as ended; nothing while there is none.
    std::optional<Time> NextDue() const;

    /// The piece at hand, if it counts as ended by `now`.
    std::vector<LogLine> TakeDue(Time now);

    /// The piece at hand, whatever its age.
    std::vector<LogLine> TakeRest();

private:
    LogLine piece_; // without bytes: there is none
};

} // namespace tarvex::unit
