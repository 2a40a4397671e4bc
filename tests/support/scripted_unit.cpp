#include "support/scripted_unit.h"

#include <array>
#include <cstdio>
#include <utility>

namespace tarvex::tests
{

ScriptedUnit::ScriptedUnit(VirtualWorld& world, ScriptedPort& port) : world_(world), port_(port)
{
    port.unit = [this](std::string_view bytes) { Take(bytes); };
}

void ScriptedUnit::SetHeader(int index, const std::vector<std::string>& tenFields)
{
    for (std::size_t page = 0; page < tenFields.size(); ++page) {
        std::array<char, 8> address{};
        std::snprintf(address.data(), address.size(), "%02X0%u0",
                      static_cast<unsigned>(index) & 0xFFU, static_cast<unsigned>(page) & 0xFU);
        pages[address.data()] = tenFields[page];
    }
}

void ScriptedUnit::SetReadings(int index, int page, const std::vector<std::uint16_t>& words)
{
    std::array<char, 8> address{};
    std::snprintf(address.data(), address.size(), "%02X%03X", static_cast<unsigned>(index) & 0xFFU,
                  static_cast<unsigned>(0x100 + page * 0x10) & 0xFFFU);
    std::string& bytes = pages[address.data()];
    bytes.clear();
    for (const std::uint16_t word : words) {
        bytes += static_cast<char>(word >> 8);
        bytes += static_cast<char>(word & 0xFF);
    }
}

std::string ScriptedUnit::PageReply(std::string_view bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string reply;
    reply.reserve(50);
    for (std::size_t index = 0; index < 16; ++index) {
        const unsigned byte = index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
        reply.append({digits[byte / 16], digits[byte % 16], ' '});
    }
    return reply.append("\r\n");
}

void ScriptedUnit::Take(std::string_view bytes)
{
    if (bytes == "}") {
        ++wakes;
        if (onWake) onWake(wakes);
        Answer(answerWake(wakes));
    } else if (bytes.starts_with('a')) {
        ++reads;
        Answer(answerRead(reads, PageReply(pages[std::string(bytes.substr(1, bytes.size() - 2))])));
    } else if (const auto answer = answers.find(std::string(bytes)); answer != answers.end()) {
        Answer(answer->second);
    }
}

void ScriptedUnit::Answer(std::string bytes)
{
    if (bytes.empty()) return;
    world_.After(latency, [this, bytes = std::move(bytes)] { port_.Receive(bytes); });
}

} // namespace tarvex::tests
