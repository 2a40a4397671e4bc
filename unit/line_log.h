#pragma once

#include "unit/reply.h"

#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// The two ends of the line.
enum class Speaker { Manager, Unit };

/// One line of a log: what one end said in one go, or what happened to it.
struct LogLine {
    Time at{0};                         ///< when the last of it passed
    Speaker speaker = Speaker::Manager; ///< whose end it was
    std::string bytes = {};             ///< what was said; may be empty when there is a note
    std::string note = {};              ///< what else happened: "hang-up", "break"

    bool operator==(const LogLine&) const = default;
};

/// The note of an end that was taken away.
inline constexpr std::string_view kHangUpNote = "hang-up";

/// The note of a break.
inline constexpr std::string_view kBreakNote = "break";

/// The line as a person reads it: seconds with six decimals, the speaker, the bytes escaped, and
/// the note in parentheses. A parenthesis among the bytes is escaped too, and so is a blank at
/// either end of them.
std::string TextOf(const LogLine& line);

/// The line that a text of this form stands for; any other text throws std::invalid_argument.
LogLine ParseLogLine(std::string_view text);

/// A log from a stream, without its empty lines and those that begin with "#". Throws
/// std::invalid_argument with the number of the line that is none.
std::vector<LogLine> ReadLog(std::istream& stream);

} // namespace tarvex::unit
