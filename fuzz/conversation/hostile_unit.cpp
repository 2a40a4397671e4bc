#include "conversation/hostile_unit.h"

#include <utility>

namespace tarvex::fuzz
{

namespace
{

constexpr std::size_t kLongestNoise = 80;

/// What a header's page holds of a small survey: 1.5 m deep, in steps of half a metre.
constexpr std::string_view kSmallSurvey[] = {
    "CLIENT0 ", "SITE0000", "T12 ", "0015", "0", "2", "+045", "03", "260101  ", "093015  "};

} // namespace

HostileUnit::HostileUnit(tests::TestProgram& program, Choices& choices)
    : program_(program), choices_(choices)
{
    program.port.unit = [this](std::string_view bytes) { Take(bytes); };
}

void HostileUnit::Take(std::string_view bytes)
{
    const std::string answer = RightAnswer(bytes);
    SendLater(choices_.Chance(12) ? Mutated(answer) : answer);
    if (choices_.Chance(3)) SendLater(choices_.Bytes(kLongestNoise));
}

std::string HostileUnit::RightAnswer(std::string_view bytes)
{
    if (bytes == "}") return "!";
    if (bytes == "H\r") return "260101093015\r\n";
    if (bytes.front() != 'a') return {};
    const bool header = bytes.size() > 4 && bytes[3] == '0';
    return tests::ScriptedUnit::PageReply(header ? HeaderPage(bytes[4]) : choices_.Bytes(16));
}

std::string HostileUnit::HeaderPage(char page)
{
    const auto index = static_cast<std::size_t>(page - '0');
    if (index >= std::size(kSmallSurvey) || choices_.Chance(30)) return choices_.HostileText(16);
    return std::string(kSmallSurvey[index]);
}

std::string HostileUnit::Mutated(const std::string& answer)
{
    switch (choices_.Below(8)) {
    case 0:
        return {};
    case 1:
        return answer + answer;
    case 2:
        return answer.substr(0, choices_.Below(51));
    case 3:
        return answer + choices_.Bytes(kLongestNoise);
    case 4:
        return choices_.Bytes(2) + answer;
    case 5: {
        std::string changed = answer;
        const std::size_t place = choices_.Below(50);
        if (place < changed.size()) changed[place] = static_cast<char>(choices_.Below(256));
        return changed;
    }
    case 6:
        return "?";
    default:
        return choices_.Bytes(kLongestNoise);
    }
}

void HostileUnit::SendLater(std::string bytes)
{
    if (bytes.empty()) return;
    constexpr tests::Milliseconds delays[] = {1, 1, 1, 1, 1, 0, 20, 150, 590, 610, 700, 1500};
    program_.world.After(choices_.OneOf(delays),
                         [this, bytes = std::move(bytes)] { program_.port.Receive(bytes); });
}

} // namespace tarvex::fuzz
