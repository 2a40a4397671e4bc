#include "unit/line_log.h"

#include "unit/escape.h"

#include <charconv>
#include <optional>
#include <stdexcept>

namespace tarvex::unit
{

namespace
{
constexpr std::size_t kSecondsWidth = 6;
constexpr std::size_t kDecimals = 6;
constexpr std::int64_t kMostSeconds = 999'999'999; // some thirty years, far from where Time ends
constexpr std::int64_t kMicroseconds = 1'000'000;
constexpr std::string_view kGap = "  ";
constexpr std::string_view kManager = "manager";
constexpr std::string_view kUnit = "unit   ";

std::string RightAligned(std::int64_t number, std::size_t width, char fill)
{
    auto digits = std::to_string(number);
    return digits.insert(0, digits.size() < width ? width - digits.size() : 0, fill);
}

/// Escaped bytes in which nothing can be taken for a note, and no editor loses a blank.
std::string Shown(std::string_view bytes)
{
    auto text = Escape(bytes);
    for (auto at = text.find('('); at != std::string::npos; at = text.find('(', at))
        text.replace(at, 1, "\\x28");
    if (text.ends_with(' ')) text.replace(text.size() - 1, 1, "\\x20");
    if (text.starts_with(' ')) text.replace(0, 1, "\\x20");
    return text;
}

[[noreturn]] void Refuse(std::string_view reason)
{
    throw std::invalid_argument("line of a log: " + std::string(reason));
}

/// Takes `part` from the front of `text`; false when it is not there.
bool TakeFront(std::string_view& text, std::string_view part)
{
    if (!text.starts_with(part)) return false;
    text.remove_prefix(part.size());
    return true;
}

std::int64_t TakeNumber(std::string_view& text)
{
    std::int64_t value = 0;
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) Refuse("it begins with seconds");
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
    return value;
}

Time TakeTime(std::string_view& text)
{
    while (TakeFront(text, " ")) {
    }
    const auto seconds = TakeNumber(text);
    const auto before = text.size();
    if (!TakeFront(text, ".")) Refuse("its seconds have six decimals");
    const auto micro = TakeNumber(text);
    if (before - text.size() != kDecimals + 1 || seconds < 0 || micro < 0)
        Refuse("its seconds have six decimals");
    if (seconds > kMostSeconds) Refuse("no record is as long as that");
    return Time{seconds * kMicroseconds + micro};
}

Speaker TakeSpeaker(std::string_view& text)
{
    if (TakeFront(text, kManager)) return Speaker::Manager;
    if (TakeFront(text, kUnit)) return Speaker::Unit;
    Refuse("after the time comes manager or unit");
}

/// The note at the end, if there is one, with the gap before it.
std::string TakeNote(std::string_view& text)
{
    const auto start = text.find('(');
    if (start == std::string_view::npos) return {};
    if (!text.ends_with(')')) Refuse("a note ends in a parenthesis");
    std::string note(text.substr(start + 1, text.size() - start - 2));
    text = text.substr(0, start);
    if (text.ends_with(kGap)) text.remove_suffix(kGap.size());
    return note;
}
} // namespace

std::string TextOf(const LogLine& line)
{
    auto text = RightAligned(line.at.count() / kMicroseconds, kSecondsWidth, ' ') + "." +
                RightAligned(line.at.count() % kMicroseconds, kDecimals, '0');
    text.append(kGap).append(line.speaker == Speaker::Manager ? kManager : kUnit).append(kGap);
    text += Shown(line.bytes);
    if (line.note.empty()) return text;
    if (!line.bytes.empty()) text.append(kGap);
    return text + "(" + line.note + ")";
}

LogLine ParseLogLine(std::string_view text)
{
    LogLine line;
    line.at = TakeTime(text);
    if (!TakeFront(text, kGap)) Refuse("two blanks part its columns");
    line.speaker = TakeSpeaker(text);
    if (!TakeFront(text, kGap)) Refuse("two blanks part its columns");
    line.note = TakeNote(text);
    line.bytes = Unescape(text);
    if (line.bytes.empty() && line.note.empty()) Refuse("it has neither bytes nor a note");
    return line;
}

std::vector<LogLine> ReadLog(std::istream& stream)
{
    std::vector<LogLine> log;
    int number = 0;
    for (std::string text; std::getline(stream, text);) {
        ++number;
        if (text.empty() || text.starts_with('#')) continue;
        try {
            log.push_back(ParseLogLine(text));
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument(std::to_string(number) + ": " + error.what());
        }
    }
    return log;
}

} // namespace tarvex::unit
