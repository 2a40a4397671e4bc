#include "common/target.h"

#include "common/choices.h"
#include "common/require.h"
#include "unit/escape.h"
#include "unit/faults.h"
#include "unit/fill_text.h"
#include "unit/frame_reader.h"
#include "unit/line_log.h"
#include "unit/memory_file.h"
#include "unit/pacer.h"
#include "unit/replay.h"
#include "unit/survey.h"
#include "unit/tap/line_joiner.h"
#include "unit/tap/marked_bytes.h"
#include "unit/unit.h"

#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <stdexcept>

namespace tarvex::fuzz
{
namespace
{

using namespace unit;

constexpr std::size_t kAll = 4096;

/// What an operation that refuses a text by `Refusal` gives; nothing when it has refused.
template <class Refusal, class Operation>
auto Given(Operation&& operation) -> std::optional<decltype(operation())>
{
    try {
        return operation();
    } catch (const Refusal& refusal) {
        Require(refusal.what()[0] != '\0', "a refusal gives its reason");
        return std::nullopt;
    }
}

/// A moment a little or much later.
void Pass(Choices& choices, Time& now)
{
    constexpr Time pauses[] = {Time{0}, Time{1'146}, Time{20'000}, Time{40'000}, Time{700'000}};
    now += choices.OneOf(pauses);
}

/// True when `part` is what is left of `whole` after some of it has been left out.
bool IsLeftOf(std::string_view part, std::string_view whole)
{
    for (const char byte : whole)
        if (part.starts_with(byte)) part.remove_prefix(1);
    return part.empty();
}

/// Nothing is heard that was not said in that order; of a long noise only the start is kept.
void ReadFrames(Choices& choices)
{
    constexpr std::string_view letters = "abcCDGH";
    FrameReader reader;
    Time now{0};
    std::string heard;
    std::string said;
    while (!choices.UsedUp() && said.size() < kAll) {
        said += static_cast<char>(choices.Below(256));
        for (const Heard& piece : reader.Take(said.back(), now)) {
            if (piece.kind == Heard::Kind::Wake) heard += '}';
            if (piece.kind == Heard::Kind::Noise) heard += piece.bytes;
            if (piece.kind != Heard::Kind::Frame) continue;
            Require(letters.find(piece.bytes.at(0)) != std::string_view::npos,
                    "a frame has a letter");
            heard += piece.bytes + '\r';
        }
        if (choices.Chance(4)) Pass(choices, now);
    }
    Require(IsLeftOf(heard, said), "what is heard is what was said");
}

std::vector<Fault> AnyFaults(Choices& choices)
{
    constexpr std::string_view texts[] = {"silent@wake2+", "late@wake1:700", "wrong@wake2:?\\r",
                                          "double@page1",  "short@page1:20", "long@clock1:9",
                                          "garbled@page1", "lower@page1+",   "shifted@wake3",
                                          "stray@write1",  "hangup@page2:20"};
    std::vector<Fault> faults;
    for (unsigned count = choices.Below(4); count > 0; --count)
        faults.push_back(ParseFault(choices.OneOf(texts)));
    return faults;
}

/// The unit on its line, at any manager.
void ServeAnyManager(Choices& choices)
{
    Unit served(Memory(), AnyFaults(choices));
    Pacer line(served, choices.Below(2) == 0 ? Pace::Fast : Pace::Line);
    constexpr std::string_view frames[] = {"}",          "a00000\r", "a1D100\r",        "H\r",
                                           "b000F500\r", "c\r",      "G260101093015\r", "aFFFF0\r",
                                           "b00000FF\r"};
    Time now{0};
    for (int turns = 0; turns < 200 && !choices.UsedUp(); ++turns) {
        line.Receive(choices.Chance(20) ? choices.Bytes(60) : std::string(choices.OneOf(frames)),
                     now);
        Pass(choices, now);
        line.Deliver(now);
        if (const auto due = line.NextDue()) Require(*due >= now, "what is due lies ahead");
    }
    Require(served.StoredMemory().Image().size() == kMemoryBytes, "the memory keeps its length");
}

void ReadFaultText(Choices& choices)
{
    constexpr std::string_view starts[] = {"",
                                           "silent@wake",
                                           "wrong@page1:",
                                           "late@",
                                           "hangup@write9",
                                           "long@wake1:9",
                                           "garbled@page1:",
                                           "short@page1:"};
    const std::string start(choices.OneOf(starts));
    const bool number = choices.Below(2) == 0;
    const auto text = start + (number ? std::to_string(choices.Below(64)) : choices.Bytes(kAll));
    const auto fault = Given<std::invalid_argument>([&] { return ParseFault(text); });
    if (!fault) return;
    Require(fault->number >= 1, "moments are counted from 1");
    const bool cuts = fault->trouble == Trouble::Short || fault->trouble == Trouble::HangUp;
    for (const Reply& reply : ApplyFaults({*fault}, fault->moment, fault->number, "!")) {
        Require(reply.after >= Time{0}, "a pause is never negative");
        Require(!cuts || std::string_view("!").starts_with(reply.bytes), "a cut makes no bytes");
    }
}

void ReadFillText(Choices& choices)
{
    constexpr std::string_view starts[] = {"", "4:depth=", "30:client=", "1:seed=", "2:frozen="};
    const std::string text = std::string(choices.OneOf(starts)) + choices.Bytes(kAll);
    const auto fill = Given<std::invalid_argument>([&] { return ParseFill(text); });
    if (!fill) return;
    Require(fill->block >= 1 && fill->block <= kBlocks, "a fill names a block");
    Memory memory;
    FillBlock(memory, fill->block, fill->survey);
    const int pages = PageCount(fill->survey.header);
    Require(pages >= 0 && pages <= 240, "a survey has 240 pages at most");
}

void ReadMemoryFile(Choices& choices)
{
    const auto path = std::filesystem::temp_directory_path() / "memory";
    const std::size_t lengths[] = {kMemoryBytes, 0, 1, kMemoryBytes - 1, kMemoryBytes + 1};
    std::string image = choices.Bytes(1024);
    image.resize(choices.OneOf(lengths), '\x5A');
    std::ofstream(path, std::ios::binary) << image;
    const auto memory = Given<std::runtime_error>([&] { return LoadMemory(path); });
    Require(memory.has_value() == (image.size() == kMemoryBytes), "a memory has its length");
    if (!memory) return;
    Require(memory->Image() == image, "a memory is what its file holds");
    SaveMemory(*memory, path);
    Require(LoadMemory(path) == *memory, "a memory kept is the same memory");
}

/// Any bytes, or what a log is made of in any order.
std::string AnyLogText(Choices& choices)
{
    if (choices.Below(2) == 0) return choices.Bytes(kAll);
    constexpr std::string_view pieces[] = {
        "0.000001", "  unit     ", "  manager  ", "\\", "\\x4", "4", "F", "r", "(", ")", " "};
    std::string text = choices.Below(2) == 0 ? "     0.000001  manager  " : "";
    for (unsigned count = choices.Below(16); count > 0; --count)
        text += choices.OneOf(pieces);
    return text;
}

/// What a person can read leads back to the same bytes; a log of any text is read or refused.
void ReadLogText(Choices& choices)
{
    const std::string text = AnyLogText(choices);
    Require(Unescape(Escape(text)) == text, "escaped bytes come back");
    Given<std::invalid_argument>([&] { return Unescape(text); });
    const auto line = Given<std::invalid_argument>([&] { return ParseLogLine(text); });
    if (line) Require(ParseLogLine(TextOf(*line)) == *line, "a line of a log comes back");
}

void ReplayAnyLog(Choices& choices)
{
    std::vector<LogLine> record;
    Time at{0};
    for (unsigned lines = choices.Below(20); lines > 0; --lines) {
        Pass(choices, at);
        record.push_back({at, choices.Below(2) == 0 ? Speaker::Manager : Speaker::Unit,
                          choices.HostileText(20), choices.Chance(5) ? "hang-up" : ""});
    }
    Replay replay(record, choices.Below(2) == 0 ? Pace::Fast : Pace::Line);
    Time now{0};
    for (int turns = 0; turns < 100 && !choices.UsedUp(); ++turns) {
        replay.Receive(choices.HostileText(20), now);
        Pass(choices, now);
        replay.Deliver(now);
    }
    replay.Finish();
}

/// The tap neither loses a byte nor makes one, and knows who said it.
void TapAnyLine(Choices& choices)
{
    LineJoiner joiner;
    MarkedBytes marks;
    Time now{0};
    std::map<Speaker, std::string> passed;
    std::map<Speaker, std::string> logged;
    const auto take = [&logged](const std::vector<LogLine>& lines) {
        for (const LogLine& line : lines)
            logged[line.speaker] += line.bytes;
    };
    for (int pieces = 0; pieces < 200 && !choices.UsedUp(); ++pieces) {
        const auto speaker = choices.Below(2) == 0 ? Speaker::Manager : Speaker::Unit;
        for (const Received& piece : marks.Take(choices.HostileText(20))) {
            if (!piece.bytes.empty()) passed[speaker] += piece.bytes;
            take(joiner.Take(speaker, piece.bytes, now));
        }
        Pass(choices, now);
        take(joiner.TakeDue(now));
    }
    take(joiner.TakeRest());
    Require(logged == passed, "a log holds what each end has said");
}

} // namespace
} // namespace tarvex::fuzz

void tarvex::fuzz::RunInput(std::string_view input)
{
    Choices choices(input);
    constexpr void (*parts[])(Choices&) = {ReadFrames,   ServeAnyManager, ReadFaultText,
                                           ReadFillText, ReadMemoryFile,  ReadLogText,
                                           ReplayAnyLog, TapAnyLine};
    choices.OneOf(parts)(choices);
}
