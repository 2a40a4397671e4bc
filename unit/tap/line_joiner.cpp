#include "unit/tap/line_joiner.h"

#include <utility>

namespace tarvex::unit
{

namespace
{
bool IsWhole(const LogLine& piece)
{
    if (piece.speaker == Speaker::Manager) return piece.bytes == "}" || piece.bytes.back() == '\r';
    return piece.bytes == "!" || piece.bytes.back() == '\n';
}
} // namespace

std::vector<LogLine> LineJoiner::Take(Speaker speaker, std::string_view bytes, Time at)
{
    std::vector<LogLine> lines;
    if (piece_.speaker != speaker) lines = TakeRest();
    for (const char byte : bytes) {
        piece_.speaker = speaker;
        piece_.at = at;
        piece_.bytes += byte;
        if (IsWhole(piece_)) lines.push_back(std::exchange(piece_, {}));
    }
    return lines;
}

std::vector<LogLine> LineJoiner::Note(Speaker speaker, std::string_view note, Time at)
{
    auto lines = TakeRest();
    lines.push_back({at, speaker, {}, std::string(note)});
    return lines;
}

std::optional<Time> LineJoiner::NextDue() const
{
    if (piece_.bytes.empty()) return std::nullopt;
    return piece_.at + kPause;
}

std::vector<LogLine> LineJoiner::TakeDue(Time now)
{
    const auto due = NextDue();
    return due && *due <= now ? TakeRest() : std::vector<LogLine>{};
}

std::vector<LogLine> LineJoiner::TakeRest()
{
    if (piece_.bytes.empty()) return {};
    return {std::exchange(piece_, {})};
}

} // namespace tarvex::unit
